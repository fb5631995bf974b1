// model: the consensus line and the consensus of each ensemble, computed from the column counts.
#pragma once

#include <array>
#include <string>

namespace kq {

inline constexpr int consensus_line_size = 150000;

// Mark of each alignment position ("*", "." or blank), closed by a zero at nb_nuc_tot. Valid while
// opt_consensus is not 0. Written by compute_ligne_consensus.
extern char ligne_consensus[consensus_line_size];
// Per ensemble, nb_nuc_tot + 1 bytes each: the consensus characters closed by a zero, and the levels 0..9
// (0 = fully conserved) closed by 255. Null when not allocated. Written by compute_consensus. Deliberate: a
// discarded ensemble leaves its strings in place; the ensemble that moves into its slot uses them until the
// next computation.
extern std::array<char*, 50> seq_cons;
extern std::array<unsigned char*, 50> val_seq_cons;

// Allocates both strings of one ensemble. The name of the string that could not be had, or "".
std::string consensus_allocate(int ensemble, int columns);
// Makes room for `columns` columns in every allocated string; false when memory is refused. The strings read
// as before either way.
bool consensus_reserve(int columns);
// The alignment has grown to `columns`, for which there is room: the new places are blanks at level 0 until
// the next computation.
void consensus_extend(int old_columns, int columns);
void consensus_release();

// Fills ligne_consensus for opt_consensus 1 or 2; does nothing when it is 0. Only columns that changed since
// the last call are computed.
void compute_ligne_consensus();
// Fills the strings of ensemble e; does nothing when it is shown species by species. Only columns that
// changed since the last call for this slot are computed.
void compute_consensus(int e);

} // namespace kq
