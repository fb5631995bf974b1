// screen: compacting the gaps of a region of the alignment.
#pragma once

#include "tools/compaction.h"
#include "tools/species_set.h"

namespace kq {

// The command: the user marks the region, then chooses the species.
void gere_compact_gap(Direction direction);
// Compacts the region pos_deb to pos_fin of the set's species; `ensemble` counts for one_ensemble only.
// Deliberate: deleted species are compacted like the others.
void do_compaction(Direction direction, SpeciesSet set, int ensemble);
void compact_seq(Direction direction, int species);

} // namespace kq
