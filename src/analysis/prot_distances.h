// screen: the distances between the analysed proteins, over the kept positions.
//
// The formulas and their special cases: prot_formulas.h. Nothing depends on the number of threads.
#pragma once

#include "analysis/prot_weights.h"

namespace kq {

// The weights of the distance computed last; written by compute_dist_prot.
extern ProtWeights mprot;
// The distance that compute_dist_prot_int computed last.
extern float dist2;

// Reads the weights of the distance type_dist, 0 to 7, into mprot and fills the lower triangle of dist: the
// species of row i comes first and that of column j second where the weights are not symmetric. False when
// the weights cannot be read, which a warning has told, or when ESCAPE has stopped it.
bool compute_dist_prot();

// One pair, the plain way: compares the rows of seq that begin at `a` and `b` by mprot over the kept
// positions and leaves the distance type_dist in dist2. What lies beyond a closing NUL is unknown.
void compute_dist_prot_int(const char* a, const char* b);

} // namespace kq
