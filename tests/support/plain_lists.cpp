#include "support/plain_lists.h"

#include "core/store.h"

#include <string_view>

namespace kq::plain {

ListedSpecies listed_species(const std::vector<std::string>& names, bool without_accession)
{
    const auto compared = [without_accession](std::string_view name) {
        return without_accession ? name.substr(0, name.find('@')) : name;
    };
    ListedSpecies listed;
    std::vector<int> mentions(static_cast<std::size_t>(nb_spec), 0);
    for (const std::string& line : names) {
        const std::string_view name = compared(line);
        std::size_t s = 0;
        while (s < mentions.size() &&
               (destroy[s] || mask[s] != 0 || compared(identifier(static_cast<int>(s))) != name))
            s++;
        if (s == mentions.size())
            listed.unknown++;
        else if (++mentions[s] <= 2)
            (mentions[s] == 1 ? listed.found : listed.repeated).push_back(static_cast<int>(s));
    }
    return listed;
}

} // namespace kq::plain
