// kernel: finds the species that a list of names means.
#include "taxonomy/name_matching.h"

#include <bit>
#include <functional>

namespace kq {

namespace {

// The candidates by what names are compared with; of several with one text, the first. Open addressing: an
// entry stands in the first free slot from its hash on.
class NameTable {
public:
    NameTable(std::span<const NamedSpecies> candidates, bool without_accession)
        : without_accession_(without_accession)
        , slots_(std::bit_ceil(2 * candidates.size() + 1))
    {
        for (const auto& [name, species] : candidates) {
            Slot& slot = slot_of(name);
            if (slot.species < 0) slot = {compared(name), species};
        }
    }

    struct Slot {
        std::string_view text;
        int species = -1; // -1 = free
        int mentions = 0; // for the caller
    };
    // The slot of the name's species; a free one when it has none.
    Slot& slot_of(std::string_view name)
    {
        const std::string_view text = compared(name);
        std::size_t place = std::hash<std::string_view>()(text);
        for (;; place++) {
            Slot& slot = slots_[place & (slots_.size() - 1)];
            if (slot.species < 0 || slot.text == text) return slot;
        }
    }

private:
    std::string_view compared(std::string_view name) const
    {
        return without_accession_ ? name.substr(0, name.find('@')) : name;
    }

    bool without_accession_;
    std::vector<Slot> slots_;
};

} // namespace

MatchedNames match_names(std::span<const std::string> names, std::span<const NamedSpecies> candidates,
                         bool without_accession)
{
    NameTable table(candidates, without_accession);
    MatchedNames matched;
    for (const std::string& name : names) {
        NameTable::Slot& slot = table.slot_of(name);
        if (slot.species < 0) {
            matched.unknown++;
            continue;
        }
        slot.mentions++;
        if (slot.mentions == 1) matched.found.push_back(slot.species);
        if (slot.mentions == 2) matched.repeated.push_back(slot.species);
    }
    return matched;
}

} // namespace kq
