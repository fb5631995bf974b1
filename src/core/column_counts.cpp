// model: per-column counts of residue classes.
#include "core/column_counts.h"

#include "core/residues.h"
#include "core/store.h"

namespace kq {

namespace {

ColumnCounts counts_of_last_set;

void add_row(ColumnCounts& counts, int species)
{
    const auto columns = static_cast<std::size_t>(nb_nuc_tot);
    const auto& codes = residue_codes(type_seq);
    counts.members++;
    for (std::size_t p = 0; p < columns; p++) {
        const char c = residue(species, static_cast<int>(p));
        const int code = codes[static_cast<unsigned char>(c)];
        if (code != code_none) counts.counters[static_cast<std::size_t>(code) * columns + p]++;
        if (c == ' ') counts.counters[static_cast<std::size_t>(counts.codes) * columns + p]++;
    }
}

} // namespace

const ColumnCounts& column_counts(CountedSet set, int ensemble)
{
    auto& counts = counts_of_last_set;
    counts.members = 0;
    counts.codes = number_of_codes(type_seq);
    counts.columns = nb_nuc_tot;
    counts.counters.assign(static_cast<std::size_t>(counts.codes + 1) * static_cast<std::size_t>(nb_nuc_tot),
                           0);
    if (set == CountedSet::species)
        for (int species = 0; species < nb_spec; species++)
            add_row(counts, species);
    if (set == CountedSet::ensemble)
        for (const int species : members(ensemble))
            add_row(counts, species);
    if (set == CountedSet::ensembles)
        for (int e = 0; e < nb_ens; e++)
            for (const int species : members(e))
                add_row(counts, species);
    return counts;
}

void counts_forget() {}

std::string columns_error()
{
    return "";
}

} // namespace kq
