#include "support/plain_distances.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace kq::plain {

namespace {

using CodeTable = std::array<std::int8_t, 256>;

constexpr std::int8_t gap = 0, unknown = 99, none = -1;

constexpr void give(CodeTable& codes, std::string_view characters, std::int8_t code)
{
    for (const char c : characters)
        codes[static_cast<unsigned char>(c)] = code;
}

constexpr CodeTable base_codes = [] {
    CodeTable codes{};
    codes.fill(none);
    give(codes, "A", 8);
    give(codes, "G", 2);
    give(codes, "C", 4);
    give(codes, "TU", 1);
    give(codes, "$*-", gap);
    give(codes, " ?XRYMWSKVHDBN", unknown);
    return codes;
}();

constexpr CodeTable amino_acid_codes = [] {
    CodeTable codes{};
    codes.fill(unknown);
    give(codes, "$*-", gap);
    std::int8_t code = 1;
    for (const char c : std::string_view("ACDEFGHIKLMNPQRSTVWY"))
        codes[static_cast<unsigned char>(c)] = code++;
    return codes;
}();

int look_up(const CodeTable& codes, char c)
{
    return codes[static_cast<unsigned char>(c)];
}

bool purine(int code)
{
    return code == 2 || code == 8;
}

bool pyrimidine(int code)
{
    return code == 1 || code == 4;
}

// -0 becomes +0; everything else stays.
float stored(double value)
{
    return static_cast<float>(value) + 0.0F;
}

// What types 8 and 11 take the logarithm or a power of.
struct KimuraTerms {
    double a, b;
};

KimuraTerms kimura_terms(const PairCounts& counts, double positions)
{
    const double p = counts.transitions / positions, q = counts.transversions / positions;
    return {1 - 2 * p - q, 1 - 2 * q};
}

double jukes_cantor(const PairCounts& counts)
{
    const double x = 1 - (counts.transitions + counts.transversions) * 1.3333334 / counts.compared;
    return x <= 0 ? 0 : -0.75 * std::log(x);
}

double kimura(const PairCounts& counts)
{
    const auto [a, b] = kimura_terms(counts, counts.compared);
    return a <= 0 || b <= 0 ? 0 : -0.5 * std::log(a * std::sqrt(b));
}

double gamma_kimura(const PairCounts& counts, double shape)
{
    const int length = counts.compared - counts.deletions;
    if (length == 0) return 0;
    const auto [a, b] = kimura_terms(counts, length);
    if (a <= 0 || b <= 0) return 1;
    return shape * (std::pow(a, -1 / shape) + 0.5 * std::pow(b, -1 / shape) - 1.5) / 2;
}

// The sum for m = 1 .. k of t(m), which begins with k / length. Beyond m = length + 1 the sum is undefined
// and stays so, which spares the rest of an endless k.
double rzhetsky_nei_series(double k, int length, double shape, double divisor)
{
    double sum = 0;
    for (int m = 1; m <= k && !std::isnan(sum); m++) {
        double term = k / length;
        for (int i = 2; i <= m; i++) {
            term *= ((i - 1) * shape + 1) * (k - i + 1) / (length - i + 1);
            term /= divisor * i;
        }
        sum += term;
    }
    return sum;
}

double gamma_jukes_cantor_series(const PairCounts& counts, double shape)
{
    const int k = counts.transitions + counts.transversions + counts.deletions + counts.others;
    const int length = counts.compared - counts.deletions;
    return length == 0 ? 0 : rzhetsky_nei_series(k, length, shape, 0.75 * shape);
}

double transversion_series(int v, int length, double shape)
{
    double sum = 0;
    for (int m = 1; m <= v; m++) {
        double product = 1;
        for (int u = 1; u <= m; u++)
            product *= ((u - 1) * shape + 1) * (v - u + 1) / (length - u + 1) / (0.5 * shape * u);
        sum += product;
    }
    return sum;
}

// b(m)
double shape_product(int m, int length, double shape)
{
    double product = 1;
    for (int u = 1; u <= m; u++)
        product *= ((u - 1) * shape + 1) / ((length - u + 1) * shape);
    return product;
}

// e(m, r)
double combination(int m, int r, int s, int v)
{
    double product = r == 0 ? 1 : static_cast<double>(s) / r;
    for (int w = 1; w <= r - 1; w++)
        product *= 2.0 * (s - w) / w;
    for (int z = 0; z <= m - r - 1; z++)
        product *= static_cast<double>(v - z) / (m - r - z);
    return product;
}

double gamma_kimura_series(const PairCounts& counts, double shape)
{
    const int s = counts.transitions, v = counts.transversions;
    const int length = counts.compared - counts.deletions;
    if (length == 0) return 0;
    const double a = transversion_series(v, length, shape);
    double b = 0;
    for (int m = 1; m <= s + v; m++) {
        double c = 0;
        for (int r = std::max(0, m - v); r <= std::min(m, s); r++)
            c += combination(m, r, s, v);
        b += shape_product(m, length, shape) * c;
    }
    return shape * ((a + 1) / 2 + (b + 1) - 1.5) / 2;
}

float percentage_of(int differences, float factor)
{
    return static_cast<float>(differences) * factor;
}

struct Composition {
    int a = 0, c = 0, g = 0, t = 0;
    int purine_transitions = 0, pyrimidine_transitions = 0, transversions = 0;
    int compared = 0;

    void count(int code) { ++(code == 8 ? a : code == 4 ? c : code == 2 ? g : t); }
    void compare(int x, int y)
    {
        if (x == y) return;
        if (purine(x) && purine(y))
            purine_transitions++;
        else if (pyrimidine(x) && pyrimidine(y))
            pyrimidine_transitions++;
        else
            transversions++;
    }
    bool without_difference() const
    {
        return purine_transitions + pyrimidine_transitions + transversions == 0;
    }
    bool base_missing() const { return a == 0 || c == 0 || g == 0 || t == 0; }
};

Composition composition(std::string_view a, std::string_view b)
{
    Composition found;
    for (std::size_t p = 0; p < a.size(); p++) {
        const int x = look_up(base_codes, a[p]), y = look_up(base_codes, b[p]);
        if (!(purine(x) || pyrimidine(x)) || !(purine(y) || pyrimidine(y))) continue;
        found.compared++;
        found.count(x);
        found.count(y);
        found.compare(x, y);
    }
    return found;
}

double power(double w, double shape)
{
    return std::exp(-std::log(w) / shape);
}

double tamura_nei_gamma(const Composition& found, double shape)
{
    const double n = found.compared;
    const double ga = found.a / 2.0 / n, gc = found.c / 2.0 / n, gg = found.g / 2.0 / n;
    const double gt = found.t / 2.0 / n;
    const double gr = ga + gg, gy = gc + gt;
    const double p1 = found.purine_transitions / n, p2 = found.pyrimidine_transitions / n;
    const double q = found.transversions / n;
    const double w1 = 1 - gr / (2 * ga * gg) * p1 - q / (2 * gr);
    const double w2 = 1 - gy / (2 * gt * gc) * p2 - q / (2 * gy);
    const double w3 = 1 - q / (2 * gr * gy);
    if (w1 <= 0 || w2 <= 0 || w3 <= 0) return 0;
    return 2 * shape *
           (ga * gg / gr * power(w1, shape) + gt * gc / gy * power(w2, shape) +
            (gr * gy - ga * gg * gy / gr - gt * gc * gr / gy) * power(w3, shape) - ga * gg - gt * gc -
            gr * gy);
}

} // namespace

PairCounts arn_counts(std::string_view a, std::string_view b)
{
    PairCounts counts;
    counts.compared = static_cast<int>(a.size());
    for (std::size_t p = 0; p < a.size(); p++) {
        const int x = look_up(base_codes, a[p]), y = look_up(base_codes, b[p]);
        if (x == unknown || y == unknown)
            counts.compared--;
        else if (x == y)
            counts.compared -= x == gap;
        else if (x == gap || y == gap)
            counts.deletions++;
        else if ((purine(x) && purine(y)) || (pyrimidine(x) && pyrimidine(y)))
            counts.transitions++;
        else if ((purine(x) && pyrimidine(y)) || (pyrimidine(x) && purine(y)))
            counts.transversions++;
        else
            counts.others++;
    }
    return counts;
}

float arn_distance(const PairCounts& counts, int type, double shape)
{
    if (counts.compared == 0) return 0;
    const int ts = counts.transitions, tv = counts.transversions, del = counts.deletions;
    const float f = 100.0F / static_cast<float>(counts.compared);
    switch (type) {
    case 0:
        return percentage_of(ts + tv + del + counts.others, f);
    case 1:
        return percentage_of(ts, f);
    case 2:
        return percentage_of(tv, f);
    case 3:
        return percentage_of(del, f);
    case 4:
        return percentage_of(ts + tv, f);
    case 5:
        return percentage_of(ts + del, f);
    case 6:
        return percentage_of(tv + del, f);
    case 7:
        return stored(jukes_cantor(counts));
    case 8:
        return stored(kimura(counts));
    case 9:
        return stored(gamma_jukes_cantor_series(counts, shape));
    case 10:
        return stored(gamma_kimura_series(counts, shape));
    default:
        return stored(gamma_kimura(counts, shape));
    }
}

float tamura_nei(std::string_view a, std::string_view b, double shape)
{
    const Composition found = composition(a, b);
    if (found.without_difference() || found.base_missing()) return 0;
    return stored(tamura_nei_gamma(found, shape));
}

float arn_distance(std::string_view a, std::string_view b, int type, double shape)
{
    return type == 12 ? tamura_nei(a, b, shape) : arn_distance(arn_counts(a, b), type, shape);
}

ResidueCounts prot_counts(std::string_view a, std::string_view b, const Weights& weights)
{
    ResidueCounts counts;
    counts.compared = static_cast<int>(a.size());
    for (std::size_t p = 0; p < a.size(); p++) {
        const int x = look_up(amino_acid_codes, a[p]), y = look_up(amino_acid_codes, b[p]);
        if (x == unknown || y == unknown)
            counts.compared--;
        else if (x == y)
            counts.compared -= x == gap;
        else if (x == gap || y == gap)
            counts.gaps++;
        else
            counts.weights =
                static_cast<float>(static_cast<double>(counts.weights) +
                                   weights[static_cast<std::size_t>(x - 1)][static_cast<std::size_t>(y - 1)]);
    }
    return counts;
}

float prot_distance(const ResidueCounts& counts, int type, double shape)
{
    if (counts.compared == 0) return 0;
    const auto n = static_cast<float>(counts.compared), g = static_cast<float>(counts.gaps);
    const float s = counts.weights;
    const int without_gaps = counts.compared - counts.gaps;
    if (type != 0 && type != 5 && type != 7 && without_gaps == 0) return 0;
    switch (type) {
    case 0:
        return (g + s) * 100.0F / n;
    case 1: {
        const double p = static_cast<double>(s) / without_gaps, x = 1 - p - 0.2 * (p * p);
        return x > 0 ? stored(-std::log(x)) : 0;
    }
    case 5:
        return g * 100.0F / n;
    case 6:
        return stored(shape *
                      rzhetsky_nei_series(std::round(static_cast<double>(s)), without_gaps, shape, shape));
    case 7:
        return stored(shape *
                      (std::exp(-std::log(1 - static_cast<double>(s) / counts.compared) / shape) - 1));
    default:
        return s * 100.0F / static_cast<float>(without_gaps);
    }
}

float prot_distance(std::string_view a, std::string_view b, int type, double shape, const Weights& weights)
{
    return prot_distance(prot_counts(a, b, weights), type, shape);
}

} // namespace kq::plain
