// model: the sets of rows that column counts are kept for.
#pragma once

#include "core/count_kernel.h"
#include "core/store.h"

#include <span>
#include <vector>

namespace kq {

// All ensembles together (a species in two of them counts twice), all species, one ensemble. Functions read
// their argument `ensemble` for the last only.
enum class CountedSet { ensembles, species, ensemble };

// Calls f(species) for each row of a set, with multiplicity.
template <typename F>
void for_rows_of(CountedSet set, int ensemble, F f)
{
    if (set == CountedSet::species) {
        for (int species = 0; species < nb_spec; species++)
            f(species);
        return;
    }
    const bool one = set == CountedSet::ensemble;
    for (int e = one ? ensemble : 0; e < (one ? ensemble + 1 : nb_ens); e++)
        for (const int species : members(e))
            f(species);
}

// The rows as they are to be counted; valid until one of them moves or changes its length.
CountedText counted_text(int species);
std::vector<CountedText> texts_of(std::span<const int> species);
std::vector<CountedText> texts_of(CountedSet set, int ensemble);

} // namespace kq
