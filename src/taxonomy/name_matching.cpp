// kernel: finds the species that a list of names means.
#include "taxonomy/name_matching.h"

#include <unordered_map>

namespace kq {

MatchedNames match_names(std::span<const std::string> names, std::span<const NamedSpecies> candidates,
                         bool without_accession)
{
    const auto compared = [without_accession](std::string_view name) {
        return without_accession ? name.substr(0, name.find('@')) : name;
    };
    struct Owner {
        int species, mentions = 0;
    };
    std::unordered_map<std::string_view, Owner> owners;
    owners.reserve(candidates.size());
    for (const auto& [name, species] : candidates)
        owners.try_emplace(compared(name), Owner{species}); // the first one keeps the name

    MatchedNames matched;
    for (const std::string& name : names) {
        const auto owner = owners.find(compared(name));
        if (owner == owners.end()) {
            matched.unknown++;
            continue;
        }
        auto& [species, mentions] = owner->second;
        mentions++;
        if (mentions == 1) matched.found.push_back(species);
        if (mentions == 2) matched.repeated.push_back(species);
    }
    return matched;
}

} // namespace kq
