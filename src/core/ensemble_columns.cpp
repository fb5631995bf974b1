// model: the hidden columns of a list of ensembles.
#include "core/ensemble_columns.h"

#include "core/residues.h"
#include "core/store.h"

#include <numeric>

namespace kq {

std::vector<int> all_ensembles()
{
    std::vector<int> ensembles(static_cast<std::size_t>(nb_ens));
    std::iota(ensembles.begin(), ensembles.end(), 0);
    return ensembles;
}

std::vector<unsigned char> hidden_columns(std::span<const int> ensembles, bool show_all)
{
    constexpr unsigned char hidden = 255, shown = 0;
    const auto columns = static_cast<std::size_t>(nb_nuc_tot);
    if (show_all) return std::vector<unsigned char>(columns, shown);

    std::vector<unsigned char> flags(columns, hidden);
    // The columns without a residue so far. A few rows settle most of them, the other rows look at the rest.
    std::vector<std::size_t> open(columns);
    std::iota(open.begin(), open.end(), std::size_t{0});
    for (const int ensemble : ensembles)
        for (const int species : members(ensemble)) {
            const auto text = row(species);
            std::erase_if(open, [&](std::size_t p) {
                if (p >= text.size() || is_gap_class(text[p])) return false;
                flags[p] = shown;
                return true;
            });
        }
    return flags;
}

} // namespace kq
