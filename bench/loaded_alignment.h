// A large alignment for benchmarks: rows derived from one ancestor, with gaps, unknown residues and ragged
// ends.
#pragma once

#include "bench/timing.h"
#include "support/plain_reference.h"

#include <vector>

namespace kq::bench {

// Loads the alignment of sizes[i], unless it is loaded: two ensembles of half of the species each, collapsed,
// and one of ten species shown one by one; the consensus line on; everything counted and computed.
void load(int i);
// Everything that a key press brings up to date.
void recompute();

plain::Texts texts_of_ensemble(int ensemble);
// What recompute() brings up to date, from the rows alone.
void recompute_plainly();

} // namespace kq::bench
