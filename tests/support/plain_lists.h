// The plain form of selecting by a list of names: every name against every species.
#pragma once

#include <string>
#include <vector>

namespace kq::plain {

struct ListedSpecies {
    std::vector<int> found, repeated;
    int unknown = 0;
};
ListedSpecies listed_species(const std::vector<std::string>& names, bool without_accession);

} // namespace kq::plain
