// kernel: the distances between nucleic acids, from the counts of a pair.
//
// With N = comparable, Ts, Tv, Del and Oth the counts of the pair, as type_dist numbers them:
//
//    0  (Ts + Tv + Del + Oth) * f, a percentage with f = 100 / N in single precision, as up to 6
//    1  Ts * f
//    2  Tv * f
//    3  Del * f
//    4  (Ts + Tv) * f
//    5  (Ts + Del) * f
//    6  (Tv + Del) * f
//    7  -0.75 ln(1 - (Ts + Tv) * 1.3333334 / N) (Jukes & Cantor 1969)
//    8  -0.5 ln(a sqrt(b)), a = 1 - 2 P - Q, b = 1 - 2 Q, P = Ts / N, Q = Tv / N (Kimura 1980)
//   11  alpha * (a^(-1/alpha) + 0.5 b^(-1/alpha) - 1.5) / 2, with L = N - Del for N (Jin & Nei 1990)
//   12  with gamma, from the composition of the pair: see tamura_nei (Tamura & Nei 1993)
//
// 9 and 10 are series: see analysis/gamma_series.h.
//
// From 7 on these are substitutions per site, computed in double precision; only the result is rounded to
// single. Deliberate: 7 and 8 take a gap against a base for comparable, 11 does not. Nothing to compare (N or
// L is 0) and no difference give exactly 0. Saturated (the argument of a logarithm or the base of a power is
// not above 0): 7, 8 and 12 give 0 and, deliberately, 11 gives 1.
#pragma once

#include "analysis/pair_counts.h"

namespace kq {

// Types 0 to 8 and 11; `shape` is alpha.
float arn_distance(int type, const PairCounts& counts, double shape);

// Type 12. With N = compared, gX = X / 2 / N for each base X, gR = gA + gG, gY = gC + gT, P1 and P2 the
// purine and pyrimidine transitions / N, Q = transversions / N:
//
//   w1 = 1 - gR / (2 gA gG) P1 - Q / (2 gR)
//   w2 = 1 - gY / (2 gT gC) P2 - Q / (2 gY)
//   w3 = 1 - Q / (2 gR gY)
//   2 alpha [gA gG / gR w1^(-1/alpha) + gT gC / gY w2^(-1/alpha)
//            + (gR gY - gA gG gY / gR - gT gC gR / gY) w3^(-1/alpha) - gA gG - gT gC - gR gY]
//
// 0 also when one of the four bases is missing.
float tamura_nei(const CompositionCounts& counts, double shape);

} // namespace kq
