// model: selecting by a list of names; bulk deselections.
#include "taxonomy/species_lists.h"

#include "taxonomy/selection.h"
#include "taxonomy/tree_walk.h"

namespace kq {

MatchedNames select_listed(std::span<const std::string> names, bool without_accession)
{
    std::vector<NamedSpecies> candidates;
    candidates.reserve(static_cast<std::size_t>(nb_spec));
    for (int s = 0; s < nb_spec; s++)
        if (selectable(s)) candidates.push_back({identifier(s), s});
    MatchedNames matched = match_names(names, candidates, without_accession);
    set_selection(matched.found);
    return matched;
}

void annule_all()
{
    clear_selection();
}

void annule_groupe(const node& current)
{
    collect_species_below(current);
    deselect_many(working_list());
}

} // namespace kq
