// screen: searching the species under the cursor in the alignment with BLAST.
#pragma once

#include "tools/blast_table.h"

#include <array>

namespace kq {

inline constexpr int max_blast_hits = 40;

// The first hits of the last search, in BLAST's order, best first; `tophits` of them are filled (that count
// is editor/similarity_hits.h's). Written by do_blast.
extern std::array<BlastHit, max_blast_hits> blasttable;

// The command: searches the species under the cursor, shows its hits, and from then on the names' scores are
// those of this search.
void gere_blast();
// Searches the species in all species but the destroyed ones, itself included, and fills evalue[..][1] (-1.0
// where there is no hit), blasttable and tophits. False when the search failed, after a warning, or was
// stopped by ESCAPE: then all these are what they were. The region, pos_deb to pos_fin, is the whole
// alignment afterwards.
bool do_blast(int query);
// Shows blasttable until a key is pressed.
void show_blast_top_hits();

} // namespace kq
