// screen: a species and its group in a table of results.
#include "editor/species_line.h"

#include "core/store.h"
#include "screen/strings.h"
#include "taxonomy/frame.h"
#include "taxonomy/group_colours.h"

#include <algorithm>

namespace kq {

void put_species_headings(TableLine& headings, SpeciesLineColumns columns)
{
    put_text(headings, columns.species, color::light_grey, "Species");
    put_text(headings, columns.taxon, color::light_grey, "Taxon");
}

TableLine species_line(int species, std::string_view figures, SpeciesLineColumns columns)
{
    const auto s = static_cast<std::size_t>(species);
    const int group = no_groupe[s];
    const auto name = padded(identifier(species), columns.taxon - columns.species - 1);
    const auto taxon = group >= 0 && group < nb_groupe ? group_name(group) : "";
    const auto text = padded(figures, columns.species - columns.figures) + name + ' ' + std::string(taxon);
    select_color_groupe(group);
    select_bk_color_groupe(group, new_est[s] != 0);
    TableLine line;
    put_text(line, columns.figures, color_c, text, bgcolor_c);
    return line;
}

} // namespace kq
