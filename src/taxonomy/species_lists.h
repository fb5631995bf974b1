// model: selecting by a list of names; bulk deselections.
#pragma once

#include "taxonomy/name_matching.h"

namespace kq {

struct node;

// The selection becomes the species that the names mean, in their order; destroyed and masked species have no
// name here.
MatchedNames select_listed(std::span<const std::string> names, bool without_accession);

void annule_all();                       // deselects every species
void annule_groupe(const node& current); // deselects the species below a node

} // namespace kq
