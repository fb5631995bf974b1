// screen: the species that a command on a region works on.
#include "tools/species_set.h"

#include "core/store.h"
#include "editor/ensemble_commands.h"
#include "editor/prompts.h"
#include "screen/dialogs.h"

#include <numeric>

namespace kq {

namespace {

constexpr int sets_line = 10;

} // namespace

std::optional<ChosenSet> choose_species_set(std::span<const std::string_view> entries, int width,
                                            std::string_view question)
{
    const int entry = _choice_option(sets_line, 0, entries, width);
    if (entry == escaped) return std::nullopt;
    const auto set = static_cast<SpeciesSet>(entry);
    if (set != SpeciesSet::one_ensemble) return ChosenSet{set, 0};
    draw_editor_again(); // the list of ensembles is the smaller box
    const int ensemble = choice_ensemble(question);
    if (ensemble == escaped) return std::nullopt;
    return ChosenSet{set, ensemble};
}

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

} // namespace kq
