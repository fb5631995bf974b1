// model: the selection of species for the ensemble under construction.
#pragma once

#include "core/store.h"

#include <array>
#include <span>

namespace kq {

// Selection rank per row: -1 = not selected, else 1..nb_retenu without holes.
extern std::array<int, max_species> retenu;
extern int nb_retenu;
// 0 = belongs to another ensemble than the one being built, -1 otherwise.
extern std::array<int, max_species> drap_select;
// The species that an operation works on, or a sub-screen shows: the first nb_spec_gro entries.
extern std::array<int, max_species> cor;
extern int nb_spec_gro;
std::span<const int> working_list();

void select_species(int species);   // next rank, counts up; nothing when selected, destroyed or masked
void deselect_species(int species); // higher ranks close up, counts down; nothing when not selected
void deselect_many(std::span<const int> list); // the same for many, in one pass
// Selects those that are not selected, in their order after the others, and deselects those that are; in one
// pass. Destroyed and masked species stay as they are.
void toggle_many(std::span<const int> list);
void clear_selection(); // all ranks -1, all nbret_groupe 0
// Makes the selection exactly these species, in this order; counts recounted. Masked species stay; a second
// mention of a species is left out.
void set_selection(std::span<const int> ranked);
// cor = the selected species by rank.
void chercher_specie_retenue();
// Whether the species can be selected at all: neither destroyed nor masked.
bool selectable(int species);

enum RetainMode : int {
    retain_all = 0,
    retain_free = 1, // those that are in no other ensemble (drap_select)
    retain_new = 2,  // those with the "#NEW#" mark
};
// Selects the species of the working list.
void retenir_all_specie(int mode);

// Moves a species to another group (and family): counts of assigned and, when selected, selected species
// follow.
void move_species_to_group(int species, int family, int group);

std::string selection_error(); // empty, or the first broken invariant (ranks, counts)
void selection_reset();

} // namespace kq
