// model: per-column counts of residue classes.
//
// Counts are kept for the sets of rows in use: all ensembles together (a species in two ensembles counts
// twice), all species, and each collapsed ensemble. core/edit.h keeps them exact by the change alone; a set
// whose counts are out of date is counted anew when it is next asked for. What reads counts never scans rows.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace kq {

// The sets that counts are kept for.
enum class CountedSet { ensembles, species, ensemble };

// The counts of a set: one counter for each residue code and column. blank() counts the blanks alone; they
// are counted under the unknown code too. Characters without a code are in no counter.
struct ColumnCounts {
    int members = 0; // rows counted, with multiplicity
    int codes = 0;   // number of residue codes
    int columns = 0;
    std::vector<std::uint32_t> counters; // code-major, the blanks last
    std::uint32_t count(int code, int column) const
    {
        return counters[static_cast<std::size_t>(code) * static_cast<std::size_t>(columns) +
                        static_cast<std::size_t>(column)];
    }
    std::uint32_t blank(int column) const { return count(codes, column); }
};
// Counts the set anew first when its counts are out of date. `ensemble` is read for CountedSet::ensemble
// only.
const ColumnCounts& column_counts(CountedSet set, int ensemble = 0);

// Declares every count out of date: the rows or the ensembles were written from outside the door.
void counts_forget();

// Empty, or the first counter that differs from a plain recount of the rows (slow; tests and debug builds).
std::string columns_error();

} // namespace kq
