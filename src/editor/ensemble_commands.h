// screen: the editor's commands on whole ensembles.
#pragma once

#include <string_view>

namespace kq {

// A list of the ensembles under a title; the number of the one chosen, or `escaped`. A list longer than the
// screen scrolls with the selection; where names are cut at the right, Left and Right bring them into view.
int choice_ensemble(std::string_view title);
// One entry of the list, on line `line` of the text window without its first `skipped` characters.
void color_case_ensemble(int e, bool selected, int line, int skipped = 0);

// Asks for an ensemble and switches it between rows of species and one row of consensus; `escaped`, or 0.
int change_affich();

inline constexpr int rebuild_failed = -2; // the user has left for another alignment
// Asks for an ensemble and builds it anew on the tree screen; `escaped`, rebuild_failed, or 0.
int modif_ensemble();

// Asks for an ensemble and takes it out; `escaped` when nothing was done, or 0. Deliberate: consensus strings
// stay with their numbers (core/consensus.h).
int detruire_ensemble();

// Sorts the species of an ensemble by identifier, in byte order; equal identifiers keep their order.
void sort_species_alpha(int e);
int comparer_alpha_species(int a, int b); // below, equal to or above 0, as strcmp
// sort_species_alpha for the ensemble that the user chooses, or the only one.
void choose_and_sort();

} // namespace kq
