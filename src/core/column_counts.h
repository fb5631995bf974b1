// model: per-column counts of residue classes, for the sets of rows in use.
//
// Counts are kept for all ensembles together, all species, and each collapsed ensemble, from the moment they
// are first asked for. core/edit.h keeps them exact by the change alone (core/column_upkeep.h); a set whose
// counts are out of date is counted anew when it is next asked for. What reads counts never scans rows.
#pragma once

#include "core/count_table.h"
#include "core/counted_rows.h"

#include <string>

namespace kq {

// Counts the set first when it has no counts. Valid until the next change of the alignment. Memory refused is
// a fatal end.
const CountTable& column_counts(CountedSet set, int ensemble = 0);
// The columns whose counts may have changed since the last call for this set, everything after a count. A set
// has one reader that calls this: the consensus line or the consensus of the ensemble.
ColumnRange take_changes(CountedSet set, int ensemble = 0);
// Keeps no more counts of the set until they are asked for again.
void release_counts(CountedSet set, int ensemble = 0);
// Declares every count out of date: rows or ensembles were written from outside the door.
void counts_forget();

// Empty, or the first counter that differs from a plain recount of the rows, or the first wrong note of a
// species' ensembles (slow; tests and debug builds).
std::string columns_error();

// The table of a set, for core/column_upkeep.h only; it need not exist.
CountTable& count_table(CountedSet set, int ensemble = 0);

} // namespace kq
