// model: per-column counts of residue classes, and the hidden columns that follow from them.
//
// Counts are kept for the sets of rows in use: all ensembles together (a species in two ensembles counts
// twice), all species, and each collapsed ensemble. core/edit.h keeps them exact by the change alone; a set
// whose counts are out of date is counted anew when it is next asked for. What reads counts never scans rows.
#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace kq {

// One byte a column: 255 = hidden, 0 = shown; the byte at nb_nuc_tot is a sentinel of value 1. Null while
// nothing is loaded.
extern unsigned char* delcom;
extern int nb_nuc; // number of columns shown

// Allocates delcom for `columns` columns; false when memory is refused.
bool columns_allocate(int columns);
// Releases delcom and every count.
void columns_release();

// Recomputes delcom and nb_nuc: hidden = every species of every ensemble has a gap-class character ("*",
// blank,
// "$", "-") there. With show_all every column is shown. Returns how many hidden columns at or before
// `position` stopped being hidden minus how many became hidden. nb_nuc may become 0: the caller decides what
// that means.
int recompute_hidden(bool show_all, int position);

// The sets that counts are kept for.
enum class CountedSet { ensembles, species, ensemble };

// The counts of a set: `codes` rows (the residue codes, then the blanks) of nb_nuc_tot counters each.
// count(code, column); blank(column) counts the blanks alone (they are counted under the unknown code too).
// Characters without a code are in no counter.
struct ColumnCounts {
    int members = 0; // rows counted, with multiplicity
    int codes = 0;   // number of residue codes
    int columns = 0;
    std::span<const std::uint16_t> narrow; // code-major, (codes + 1) x columns; used when members <= 65535
    std::span<const std::uint32_t> wide;   // else
    std::uint32_t count(int code, int column) const;
    std::uint32_t blank(int column) const { return count(codes, column); }
};
// Counts the set anew first when its counts are out of date. `ensemble` is read for CountedSet::ensemble
// only.
const ColumnCounts& column_counts(CountedSet set, int ensemble = 0);

// Columns whose counts may have changed since a consumer last took note: [first, last), empty when first >=
// last.
struct DirtyRange {
    int first = 0, last = 0;
};

// Empty, or the first counter that differs from a plain recount of the rows (slow; tests and debug builds).
std::string columns_error();

} // namespace kq
