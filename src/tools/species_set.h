// screen: the species that a command on a region works on.
#pragma once

#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace kq {

// In the order of the menus.
enum class SpeciesSet { one_ensemble, all_ensembles, all_species };

struct ChosenSet {
    SpeciesSet set;
    int ensemble; // counts for one_ensemble only
};
// Asks for the set with these three entries, and with `question` for its ensemble; nothing on ESCAPE.
std::optional<ChosenSet> choose_species_set(std::span<const std::string_view> entries, int width,
                                            std::string_view question);

// The species of a set, ensemble by ensemble; a member of two ensembles is there twice.
std::vector<int> species_of(SpeciesSet set, int ensemble);

} // namespace kq
