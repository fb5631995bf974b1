// screen: realigning a region of the alignment with ClustalW, or what the environment variable KQ_CLUSTALW
// names.
#pragma once

#include "tools/species_set.h"

namespace kq {

// The command: the user marks the region, says how many residues a sequence has to have there, and chooses
// the species.
void gere_clustalw();

// Has ClustalW align the region pos_deb to pos_fin of the set's species and writes the result into it;
// columns are opened after it in all species when the result is longer. Its gaps alone are taken over: the
// residues stay those of the row. Species of the set that were not sent are compacted to the left. Either all
// of this is done, or a warning says why not and the alignment is as it was; without a warning after ESCAPE.
// `ensemble` counts for one_ensemble only.
void do_clustalw(SpeciesSet set, int ensemble, int minimum);

} // namespace kq
