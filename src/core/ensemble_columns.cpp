// model: the hidden columns of a list of ensembles.
#include "core/ensemble_columns.h"

#include "core/columns.h"
#include "core/residues.h"
#include "core/store.h"

#include <numeric>
#include <utility>

namespace kq {

std::vector<int> all_ensembles()
{
    std::vector<int> ensembles(static_cast<std::size_t>(nb_ens));
    std::iota(ensembles.begin(), ensembles.end(), 0);
    return ensembles;
}

std::vector<unsigned char> hidden_columns(std::span<const int> ensembles, bool show_all)
{
    const auto count = static_cast<std::size_t>(nb_nuc_tot);
    if (show_all) return std::vector<unsigned char>(count, column_shown);

    std::vector<int> species, columns(count);
    for (const int ensemble : ensembles)
        species.insert(species.end(), members(ensemble).begin(), members(ensemble).end());
    std::iota(columns.begin(), columns.end(), 0);
    std::vector<unsigned char> flags(count, column_hidden);
    mark_occupied(species, std::move(columns), flags, column_shown);
    return flags;
}

// A few rows settle most of the columns, so that the others are asked about the rest only.
void mark_occupied(std::span<const int> species, std::vector<int> columns, std::vector<unsigned char>& flags,
                   unsigned char mark)
{
    for (const int s : species) {
        if (columns.empty()) return;
        const auto text = row(s);
        std::erase_if(columns, [&](int column) {
            const auto c = static_cast<std::size_t>(column);
            if (c >= text.size() || is_gap_class(text[c])) return false;
            flags[c] = mark;
            return true;
        });
    }
}

} // namespace kq
