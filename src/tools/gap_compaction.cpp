// screen: compacting the gaps of a region of the alignment.
#include "tools/gap_compaction.h"

#include "core/edit.h"
#include "core/store.h"
#include "editor/navigation.h"
#include "editor/region.h"
#include "editor/view.h"
#include "screen/dialogs.h"

#include <span>
#include <string_view>

namespace kq {

namespace {

constexpr std::string_view sets[] = {
    "Compact gaps in the selected region for only one ensemble",
    "Compact gaps in the selected region for all ensembles",
    "Compact gaps in the selected region for all species",
};
constexpr int sets_width = 58;

void compact_region(Direction direction, std::span<const int> species)
{
    rewrite_columns(species, pos_deb, pos_fin + 1,
                    [direction](int, std::span<char> region) { compact(region, direction); });
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
    const auto chosen =
        choose_species_set(sets, sets_width, "Choose the ensemble for which you want to compact gaps:");
    if (!chosen) return;
    do_compaction(direction, chosen->set, chosen->ensemble);
    reactualise(-1);
}

} // namespace kq
