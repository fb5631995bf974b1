// kernel: the distances between proteins, from the counts of a pair.
#include "analysis/prot_formulas.h"

#include <algorithm>
#include <cmath>

namespace kq {

namespace {

float percentage(float differences, int positions)
{
    return differences * 100.0F / static_cast<float>(positions);
}

// Never -0, which would be printed with its sign.
float stored(double distance)
{
    return static_cast<float>(distance) + 0.0F;
}

double kimura(double S, int L)
{
    const double p = S / L, x = 1 - p - 0.2 * p * p;
    return x > 0 ? -std::log(x) : 0;
}

float rzhetsky_nei(double S, int L, GammaSeries& series)
{
    // From L + 2 on the sum is undefined, whatever k.
    return series.protein(static_cast<int>(std::clamp(std::round(S), 0.0, L + 2.0)), L);
}

} // namespace

float prot_distance(int type, const ProtCounts& counts, double shape, GammaSeries& series)
{
    const auto [N, G, S] = counts;
    const int L = N - G;
    if (N == 0) return 0;
    if (type == 0) return percentage(static_cast<float>(G) + S, N);
    if (type == 5) return percentage(static_cast<float>(G), N);
    if (type == 7) return stored(shape * (std::exp(-std::log(1 - double{S} / N) / shape) - 1));
    if (L == 0) return 0;
    if (type == 1) return stored(kimura(S, L));
    if (type == 6) return rzhetsky_nei(S, L, series);
    return percentage(S, L);
}

} // namespace kq
