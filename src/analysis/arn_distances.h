// screen: the distances between the analysed nucleic acids, over the kept positions.
//
// Pairs i > j are positions in cor_auto. Which counts and distances the matrices hold: distance_matrix.h; the
// formulas and their special cases: arn_formulas.h, gamma_series.h. Nothing depends on the number of threads.
#pragma once

namespace kq {

// Counts the differences of all pairs into d1, d2 and the upper triangle of dist; once a run. False when
// ESCAPE has stopped it.
bool compute_diff_arn();
// Fills the lower triangle of dist with the distance type_dist, 0 to 12, from these counts (12 from the
// sequences). A box tells how far types 9 to 12 are. False when ESCAPE has stopped it.
bool compute_dist_arn();

// One pair, i > j, result in dist(i, j): types 9, 10 and 12.
void compute_RN94_JC(int i, int j);
void compute_RN94_Kimura(int i, int j);
void compute_tamura_nei(int i, int j);

} // namespace kq
