// screen: compacting the gaps of a region of the alignment.
#include "tools/gap_compaction.h"

#include "core/edit.h"
#include "core/store.h"
#include "editor/ensemble_commands.h"
#include "editor/navigation.h"
#include "editor/prompts.h"
#include "editor/region.h"
#include "editor/view.h"
#include "screen/dialogs.h"

#include <numeric>
#include <span>
#include <string_view>
#include <vector>

namespace kq {

namespace {

constexpr std::string_view sets[] = {
    "Compact gaps in the selected region for only one ensemble",
    "Compact gaps in the selected region for all ensembles",
    "Compact gaps in the selected region for all species",
};
constexpr int sets_line = 10, sets_width = 58;

// A member of two ensembles is listed twice.
std::vector<int> species_of(SpeciesSet set, int ensemble)
{
    std::vector<int> species;
    if (set == SpeciesSet::all_species) {
        species.resize(static_cast<std::size_t>(nb_spec));
        std::iota(species.begin(), species.end(), 0);
        return species;
    }
    const bool one = set == SpeciesSet::one_ensemble;
    for (int e = one ? ensemble : 0; e < (one ? ensemble + 1 : nb_ens); e++)
        species.insert(species.end(), members(e).begin(), members(e).end());
    return species;
}

void compact_region(Direction direction, std::span<const int> species)
{
    rewrite_columns(species, pos_deb, pos_fin + 1,
                    [direction](std::span<char> region) { compact(region, direction); });
}

} // namespace

void compact_seq(Direction direction, int species)
{
    compact_region(direction, std::span(&species, 1));
}

void do_compaction(Direction direction, SpeciesSet set, int ensemble)
{
    compact_region(direction, species_of(set, ensemble));
    mark_changed();
}

void gere_compact_gap(Direction direction)
{
    if (select_region() == escaped) return;
    const int chosen = _choice_option(sets_line, 0, sets, sets_width);
    if (chosen == escaped) return;
    const auto set = static_cast<SpeciesSet>(chosen);
    int ensemble = 0;
    if (set == SpeciesSet::one_ensemble) {
        draw_rows_again(); // the list of ensembles is the smaller box
        ensemble = choice_ensemble("Choose the ensemble for which you want to compact gaps:");
        if (ensemble == escaped) return;
    }
    do_compaction(direction, set, ensemble);
    reactualise(-1);
}

} // namespace kq
