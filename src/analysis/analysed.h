// model: the species and positions that an analysis works with.
#pragma once

#include "core/store.h"

#include <array>
#include <span>
#include <string>
#include <vector>

namespace kq {

// Analysed species: rows of the alignment in analysis order, ensemble by ensemble and member by member. A
// member of two ensembles is there twice.
extern std::array<int, max_species> cor_auto;
extern int nb_spec_auto; // how many, at most max_species

inline constexpr unsigned char position_kept = 0, position_removed = 1, end_of_positions = 255;
// One byte for each of the nb_nuc_tot aligned positions, then end_of_positions; empty outside an analysis.
extern std::vector<unsigned char> retain;
extern int nb_nuc_keep; // number of kept positions

// The species in use: the first nb_spec_auto of cor_auto.
std::span<const int> analysed_species();
// The 0-based numbers of the kept positions.
std::vector<int> kept_positions();
// Replaces `text` by the species' characters at the kept positions; blanks beyond the row's end.
void kept_characters(int species, std::span<const int> positions, std::string& text);

void analysed_reset();

} // namespace kq
