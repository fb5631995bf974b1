// screen: renaming a species.
#pragma once

#include <string_view>

namespace kq {

// Whether the alignment's file could not hold the name: its reader would take a part of it for a mark.
bool holds_file_mark(std::string_view name);

// Asks for a new name, "Genus species", and whether the species-to-group file is to have a line for it: 0 =
// the name was changed, -1 = given up. The accession stays; the line of the old name does too.
int change_species_name(int species);

} // namespace kq
