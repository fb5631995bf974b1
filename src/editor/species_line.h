// screen: a species and its group in a table of results.
#pragma once

#include "screen/result_table.h"

#include <string_view>

namespace kq {

// The columns of the box at which the parts of a line begin.
struct SpeciesLineColumns {
    int figures, species, taxon;
};

// The headings of the species and its group, "Species" and "Taxon", are added to those of the figures.
void put_species_headings(TableLine& headings, SpeciesLineColumns columns);
// The figures, the identifier as far as there is room for it, and the group's name, all in the group's
// colour; on its background when the species is marked as new.
TableLine species_line(int species, std::string_view figures, SpeciesLineColumns columns);

} // namespace kq
