// model: bulk deselections.
#include "taxonomy/species_lists.h"

#include "taxonomy/selection.h"
#include "taxonomy/tree_walk.h"

namespace kq {

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
