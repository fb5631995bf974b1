// kernel: consensus marks from the counts of residue codes.
#pragma once

#include "core/count_table.h"

#include <cstdint>
#include <span>

namespace kq {

// The consensus-line mark of a column. counts: one counter a residue code, the unknown class last; N rows
// counted. m = the largest counter of any code (gap and unknown included), K = N - unknown:
// K = 0 -> blank; m = K -> "*"; else q = 10 m / K (integer): 2, 3 -> "."; 4..9 -> "*"; other -> blank.
char consensus_mark(std::span<const std::uint32_t> counts, std::uint32_t N);

struct ColumnConsensus {
    char character;
    unsigned char level; // 0..9; what would be above 9 is stored as 9
};
// The consensus of one column of an ensemble of n rows. counts as above, blanks = rows with a blank there,
// letters = the display character of each code (caractere). n = 0 gives a blank at level 0.
// Deliberate: the runner-up is the previous leader of the scan, not the second most frequent code.
ColumnConsensus column_consensus(std::span<const std::uint32_t> counts, std::uint32_t blanks, std::uint32_t n,
                                 const char* letters);

// The same for the columns of a range, many at a time; column p is written to place p of the strings. The
// letters begin with "*" and end with a blank.
void mark_columns(const CountTable& counts, ColumnRange columns, char* marks);
void consensus_columns(const CountTable& counts, ColumnRange columns, const char* letters, char* characters,
                       unsigned char* levels);

} // namespace kq
