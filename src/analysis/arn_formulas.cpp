// kernel: the distances between nucleic acids, from the counts of a pair.
#include "analysis/arn_formulas.h"

#include <cmath>

namespace kq {

namespace {

float percentage(std::int32_t differences, std::int32_t comparable)
{
    const float f = 100.0F / static_cast<float>(comparable);
    return static_cast<float>(differences) * f;
}

double jukes_cantor(const PairCounts& counts)
{
    const double x = 1 - (counts.transitions + counts.transversions) * 1.3333334 / counts.comparable;
    return x <= 0 ? 0 : -0.75 * std::log(x);
}

// What the distances of Kimura are made of.
struct KimuraTerms {
    double a, b;

    KimuraTerms(double transitions, double transversions, double positions)
        : a(1 - 2 * (transitions / positions) - transversions / positions)
        , b(1 - 2 * (transversions / positions))
    {
    }
    bool saturated() const { return a <= 0 || b <= 0; }
};

double kimura(const PairCounts& counts)
{
    const KimuraTerms terms(counts.transitions, counts.transversions, counts.comparable);
    return terms.saturated() ? 0 : -0.5 * std::log(terms.a * std::sqrt(terms.b));
}

double gamma_kimura(const PairCounts& counts, double shape)
{
    const std::int32_t positions = counts.comparable - counts.deletions;
    if (positions == 0) return 0;
    const KimuraTerms terms(counts.transitions, counts.transversions, positions);
    if (terms.saturated()) return 1;
    return shape * (std::pow(terms.a, -1 / shape) + 0.5 * std::pow(terms.b, -1 / shape) - 1.5) / 2;
}

// Never -0, which would be printed with its sign: a negative multiple of the logarithm of 1.
float stored(double distance)
{
    return static_cast<float>(distance) + 0.0F;
}

} // namespace

float arn_distance(int type, const PairCounts& counts, double shape)
{
    const auto& [comparable, transitions, transversions, deletions, others] = counts;
    if (comparable == 0) return 0;
    switch (type) {
    case 0:
        return percentage(transitions + transversions + deletions + others, comparable);
    case 1:
        return percentage(transitions, comparable);
    case 2:
        return percentage(transversions, comparable);
    case 3:
        return percentage(deletions, comparable);
    case 4:
        return percentage(transitions + transversions, comparable);
    case 5:
        return percentage(transitions + deletions, comparable);
    case 6:
        return percentage(transversions + deletions, comparable);
    case 7:
        return stored(jukes_cantor(counts));
    case 8:
        return stored(kimura(counts));
    case 11:
        return stored(gamma_kimura(counts, shape));
    default:
        return 0;
    }
}

float tamura_nei(const CompositionCounts& counts, double shape)
{
    if (counts.A == 0 || counts.C == 0 || counts.G == 0 || counts.T == 0) return 0; // nothing compared, too
    if (counts.purine_transitions + counts.pyrimidine_transitions + counts.transversions == 0) return 0;
    const double N = counts.compared;
    const double gA = counts.A / 2.0 / N, gC = counts.C / 2.0 / N, gG = counts.G / 2.0 / N,
                 gT = counts.T / 2.0 / N;
    const double gR = gA + gG, gY = gC + gT;
    const double P1 = counts.purine_transitions / N, P2 = counts.pyrimidine_transitions / N,
                 Q = counts.transversions / N;
    const double w1 = 1 - gR / (2 * gA * gG) * P1 - Q / (2 * gR);
    const double w2 = 1 - gY / (2 * gT * gC) * P2 - Q / (2 * gY);
    const double w3 = 1 - Q / (2 * gR * gY);
    if (w1 <= 0 || w2 <= 0 || w3 <= 0) return 0;
    const auto power = [shape](double w) { return std::exp(-std::log(w) / shape); };
    return stored(2 * shape *
                  (gA * gG / gR * power(w1) + gT * gC / gY * power(w2) +
                   (gR * gY - gA * gG * gY / gR - gT * gC * gR / gY) * power(w3) - gA * gG - gT * gC -
                   gR * gY));
}

} // namespace kq
