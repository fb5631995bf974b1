#include "support/plain_lists.h"

#include "core/store.h"

#include <cstring>

namespace kq::plain {

namespace {

// The text as a field of an identifier's size, cut at its "@" when accessions do not count.
struct Field {
    char text[identifier_size] = {};

    Field(const char* whole, bool without_accession)
    {
        std::strncpy(text, whole, identifier_size - 1);
        if (char* at = std::strchr(text, '@'); without_accession && at) *at = '\0';
    }
};

bool is_named(const char* name, const char* other, bool without_accession)
{
    if (without_accession) return std::strcmp(name, Field(other, true).text) == 0;
    return std::strcmp(name, other) == 0;
}

} // namespace

ListedSpecies listed_species(const std::vector<std::string>& names, bool without_accession)
{
    ListedSpecies listed;
    std::vector<int> mentions(static_cast<std::size_t>(nb_spec), 0);
    for (const std::string& line : names) {
        const Field name(line.c_str(), without_accession);
        std::size_t s = 0;
        for (; s < mentions.size(); s++)
            if (!destroy[s] && mask[s] == 0 &&
                is_named(name.text, ident + s * identifier_size, without_accession))
                break;
        if (s == mentions.size()) {
            listed.unknown++;
            continue;
        }
        mentions[s]++;
        if (mentions[s] == 1) listed.found.push_back(static_cast<int>(s));
        if (mentions[s] == 2) listed.repeated.push_back(static_cast<int>(s));
    }
    return listed;
}

} // namespace kq::plain
