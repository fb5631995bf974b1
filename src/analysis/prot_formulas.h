// kernel: the distances between proteins, from the counts of a pair.
//
// With N = comparable, G = gaps and S = weights of the pair and L = N - G, as type_dist numbers them:
//
//   0        (G + S) * 100 / N, in single precision as are 2 to 5
//   1        -ln(1 - p - 0.2 p * p), p = S / L; 0 where there is no such logarithm (Kimura 1983)
//   2, 3, 4  S * 100 / L
//   5        G * 100 / N
//   6        a series of k = S, rounded: see analysis/gamma_series.h (Rzhetsky & Nei 1994)
//   7        alpha * (exp(-ln(1 - S / N) / alpha) - 1) (Ota & Nei 1994). Deliberate: without a guard; it is
//            infinite for S = N and undefined beyond.
//
// 0 and 2 to 5 are percentages, the others substitutions per site, computed in double precision and rounded
// to single. Nothing to compare gives 0: N = 0, and L = 0 for 1 to 4 and 6.
#pragma once

#include "analysis/gamma_series.h"
#include "analysis/prot_counts.h"

namespace kq {

// Types 0 to 7; `series` is made for the `shape`, which is alpha.
float prot_distance(int type, const ProtCounts& counts, double shape, GammaSeries& series);

} // namespace kq
