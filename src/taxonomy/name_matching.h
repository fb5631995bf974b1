// kernel: finds the species that a list of names means.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kq {

struct NamedSpecies {
    std::string_view name;
    int species;
};

struct MatchedNames {
    std::vector<int> found;    // species in the order of the names, each once
    std::vector<int> repeated; // species that several names mean, in the order of their second mention
    int unknown = 0;           // names that no species has
};

// A name means the first candidate with exactly these bytes. Without accessions names and candidates are
// compared up to their first "@".
MatchedNames match_names(std::span<const std::string> names, std::span<const NamedSpecies> candidates,
                         bool without_accession);

} // namespace kq
