// model: bulk deselections.
#pragma once

namespace kq {

struct node;

void annule_all();                       // deselects every species
void annule_groupe(const node& current); // deselects the species below a node

} // namespace kq
