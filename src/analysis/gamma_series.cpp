// kernel: the series of the gamma distances of Rzhetsky and Nei (1994).
#include "analysis/gamma_series.h"

#include "core/vector_clones.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <limits>
#include <numbers>

namespace kq {

namespace {

// A term below this part of a sum does not change it: half a unit of its last place is at least 2^-54 of it.
// The rest is room for the rounding of the terms.
constexpr double negligible = 0x1p-57;
// Terms with ratios below it fall, however they are rounded.
constexpr double falling = 0.999;
constexpr int between_looks = 8;
constexpr int most_factors = 1023;
constexpr double infinity = std::numeric_limits<double>::infinity();

std::uint64_t key_of(int a, int b)
{
    return static_cast<std::uint64_t>(a) << 32 | static_cast<std::uint32_t>(b);
}

// The sum for m = 1 .. k of t(m), with t(1) = `first` and t(i) = step(t(i - 1), q, divisor * i), which
// multiplies by q = ((i - 1) * alpha + 1) * (k - i + 1) / (L - i + 1) and divides. Where k > L a term is
// divided by 0 and the sum is NaN from L + 2 on.
template <class Step>
double carried_sum(double first, int k, int L, double alpha, double divisor, Step step)
{
    if (k < 1) return 0;
    double t = first, sum = t;
    const int last = k > L ? std::min(k, L + 2) : k;
    for (int i = 2; i <= last; i++) {
        t = step(t, ((i - 1) * alpha + 1) * (k - i + 1) / (L - i + 1), divisor * i);
        sum += t;
        if (i % between_looks == 0 && k <= L && t < sum * negligible) {
            // The ratio of two terms is alpha / divisor times two factors; neither grows beyond these.
            const double weight = std::max(1.0, ((i - 1) * alpha + 1) / (alpha * i));
            const double rest = static_cast<double>(k - i + 1) / (L - i + 1);
            if (alpha / divisor * weight * rest < falling) break;
        }
    }
    return sum;
}

// Of one count of differences.
double differences_sum(int k, int L, double alpha, double divisor)
{
    return carried_sum(static_cast<double>(k) / L, k, L, alpha, divisor,
                       [](double t, double q, double d) { return t * q / d; });
}

// A.
double transversions_sum(int v, int L, double alpha)
{
    const double divisor = 0.5 * alpha;
    return carried_sum(static_cast<double>(v) / L / divisor, v, L, alpha, divisor,
                       [](double t, double q, double d) { return t * (q / d); });
}

// b(m) from b(m - 1).
double next_factor(double b, int m, int L, double alpha)
{
    return b * (((m - 1) * alpha + 1) / ((L - m + 1) * alpha));
}

// By what power of 2 b(m) grows at most between two m up to n. It grows by (m + 1 / alpha) / (L - m), whose
// logarithm is at most that less 1, which is convex where it is positive.
double growth_of_factors(int n, int L, double alpha)
{
    const double last =
        2.0 * (n - 1) + 1 / alpha - L; // the numerator of that, which falls by 2 for smaller m
    return last <= 0 ? 0 : (last / 2 + 1) * last / (L - n + 1) / 2 * std::numbers::log2e;
}

// c(m) and the products in it are less than 2 to this power.
double size_of_products(int s, int v)
{
    return s * std::log2(3.0) + v + std::log2(s + 1);
}

// ---- c(m), a block of successive m at a time

constexpr int block_terms = 32;
using Vector [[gnu::vector_size(32)]] = double;
constexpr int vector_doubles = 4, block_vectors = block_terms / vector_doubles;

// e(r, r), which has no factors of z.
double start(int s, int r)
{
    double e = r == 0 ? 1.0 : static_cast<double>(s) / r;
    for (int w = 1; w < r; w++)
        e *= 2.0 * (s - w) / w;
    return e;
}

// e(r + d, r)
double product(int s, int v, int r, int d)
{
    double e = start(s, r);
    for (int z = 0; z < d; z++)
        e *= static_cast<double>(v - z) / (d - z);
    return e;
}

// For r = 0 .. wanted, as far as there are any.
void add_starts(int s, int wanted, std::vector<double>& starts)
{
    for (int r = static_cast<int>(starts.size()); r <= std::min(s, wanted); r++)
        starts.push_back(start(s, r));
}

KQ_VECTOR_CLONES
void fill_quotients(int v, int d, double* quotients)
{
    for (int z = 0; z < d; z++)
        quotients[z] = static_cast<double>(v - z) / (d - z);
}

// Multiplies a block by each of the quotients and adds it to the sums.
KQ_VECTOR_CLONES
void add_products(const double* starts, const double* quotients, int count, double* sums)
{
    Vector e[block_vectors], c[block_vectors];
    std::memcpy(e, starts, sizeof e);
    std::memcpy(c, sums, sizeof c);
    for (int z = 0; z < count; z++)
#pragma GCC unroll 8
        for (int i = 0; i < block_vectors; i++)
            e[i] *= quotients[z];
    for (int i = 0; i < block_vectors; i++)
        c[i] += e[i];
    std::memcpy(sums, c, sizeof c);
}

// Adds c(m) of the next block to `c`. Each is summed in the order of growing r, which is that of falling
// d = m - r.
void add_block(int s, int v, const std::vector<double>& starts, std::vector<double>& c)
{
    const int first = static_cast<int>(c.size()), last = first + block_terms - 1;
    c.resize(c.size() + block_terms);
    std::vector<double> quotients(static_cast<std::size_t>(last) + 1);
    for (int d = std::min(v, last); d >= std::max(0, first - s); d--) {
        std::array<double, block_terms> e{}; // 0 where there is no r
        const int from = std::max(0, d - first), r = first + from - d;
        const int to = std::min(block_terms, s + 1 + d - first);
        std::copy_n(starts.begin() + r, to - from, e.begin() + from);
        fill_quotients(v, d, quotients.data());
        add_products(e.data(), quotients.data(), d, c.data() + first);
    }
}

} // namespace

// ---- one pair

GammaSeries::GammaSeries(double alpha)
    : alpha_(alpha)
    , jukes_cantor_(16)
    , protein_(16)
    , first_sums_(16)
    , factors_(10)
    , starts_(10)
    , coefficients_(16)
{
}

float GammaSeries::jukes_cantor(int k, int L)
{
    if (L == 0) return 0;
    bool is_new = false;
    float& sum = jukes_cantor_.at(key_of(k, L), is_new);
    if (is_new) sum = static_cast<float>(differences_sum(k, L, alpha_, 0.75 * alpha_));
    return sum;
}

float GammaSeries::protein(int k, int L)
{
    if (L == 0) return 0;
    bool is_new = false;
    float& distance = protein_.at(key_of(k, L), is_new);
    if (is_new) distance = static_cast<float>(alpha_ * differences_sum(k, L, alpha_, alpha_));
    return distance;
}

float GammaSeries::kimura(int s, int v, int L)
{
    if (L == 0) return 0;
    bool is_new = false;
    double& A = first_sums_.at(key_of(v, L), is_new);
    if (is_new) A = transversions_sum(v, L, alpha_);
    const double B = second_sum(s, v, L);
    return static_cast<float>(alpha_ * ((A + 1) / 2 + (B + 1) - 1.5) / 2);
}

const std::vector<double>& GammaSeries::factors(int L)
{
    bool is_new = false;
    auto& b = factors_.at(key_of(0, L), is_new);
    if (!is_new) return b;
    b.assign(1, 1.0);
    for (int m = 1; m <= std::min(L, most_factors); m++)
        b.push_back(next_factor(b.back(), m, L, alpha_));
    return b;
}

double GammaSeries::coefficient(std::vector<double>& c, int s, int v, int m)
{
    if (m >= std::ssize(c)) {
        bool is_new = false;
        auto& starts = starts_.at(key_of(0, s), is_new);
        if (is_new) starts.clear();
        add_starts(s, m + block_terms, starts);
        add_block(s, v, starts, c);
    }
    return c[static_cast<std::size_t>(m)];
}

double GammaSeries::second_sum(int s, int v, int L)
{
    const int n = s + v;
    bool is_new = false;
    auto& c = coefficients_.at(key_of(s, v), is_new);
    if (is_new) c.clear();
    if (n <= std::min(L, most_factors)) {
        const auto& b = factors(L);
        const double size = size_of_products(s, v);
        if (size + growth_of_factors(n, L, alpha_) < 980) return shortened_sum(b, c, s, v, L);
        // One of the greatest products decides: nothing times infinity.
        const int r = 2 * s / 3, d = v / 2;
        const double vanished = b[static_cast<std::size_t>(r + d)];
        if (size > 1024 && vanished == 0 && std::isinf(product(s, v, r, d))) return vanished * infinity;
    }

    double b = 1, sum = 0;
    const int last = n > L ? std::min(n, L + 2) : n;
    for (int m = 1; m <= last && !std::isnan(sum); m++) {
        b = next_factor(b, m, L, alpha_);
        sum += b * coefficient(c, s, v, m);
    }
    return sum;
}

// The rest of the sum is left out where it cannot change it.
//
// c(m) is at least half of the coefficient g(m) of x^m in (1 + 2x)^s * (1 + x)^v, and at most all of it. That
// polynomial has real roots, so the ratio of (m + 1) * g(m + 1) to (n - m) * g(m) never grows from (2s + v) /
// n (Newton's inequalities): once the terms fall, they stay below a falling geometric series. What their
// rounding adds to that is next to nothing while b(m) is a normal number. When it no longer is, each step to
// the next b(m) adds an error of 2^-1074 at most, which grows as b(m) does: n * 2^(980 - 1074) in all after
// it has been multiplied by c(m), and that is nothing beside the first term, n / (L * alpha).
double GammaSeries::shortened_sum(const std::vector<double>& b, std::vector<double>& c, int s, int v, int L)
{
    const int n = s + v;
    double sum = 0;
    for (int m = 1; m <= n; m++) {
        const double term = b[static_cast<std::size_t>(m)] * coefficient(c, s, v, m);
        sum += term;
        if (m % between_looks == 0 && m < n && term < sum * negligible) {
            const double first = static_cast<double>(n + s) / n, rest = static_cast<double>(n - m) / (L - m);
            if (first * rest * std::max(1.0, (m + 1 / alpha_) / (m + 1)) < falling) break;
        }
    }
    return sum;
}

} // namespace kq
