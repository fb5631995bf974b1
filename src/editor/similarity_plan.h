// kernel: what aligning a row on the gaps of the top row will do, as far as it needs no answer.
//
// Step by step, the row under the cursor gets gaps where the top row has some, up to the place in the top row
// that the residues found there resemble most. Each step alone moves the rest of the row; a plan finds them
// all first, so that the rows move once.
#pragma once

#include <span>
#include <string_view>
#include <vector>

namespace kq {

// What a plan depends on. Positions are 0-based columns, characters beyond a text are blanks. The top row
// does not change when the aligned rows do.
struct AlignedRows {
    std::string_view top;
    std::string_view own; // the row that is aligned, or the consensus of the rows that are
    // Per column: whether a row that stays, and whether one that is aligned, holds a residue. A column
    // without either is hidden, unless all are shown.
    std::vector<unsigned char> occupied_by_others, occupied_by_own;
    bool all_shown = false;
    int columns = 0;        // of the alignment
    int longest_growth = 0; // columns that it may become longer
    int free_columns = 0;   // at its end, without a residue in the rows that are aligned
    int cursor = 0;         // where the search begins: the column after it is the first one looked at
    int ranked_places = 0;  // hits that are ranked; only two of them matter
    int pattern_length = 0; // residues sought, at most
};

// n gaps at a position, counted with the gaps before it in place.
struct GapRun {
    int position = 0, count = 0;
    bool operator==(const GapRun&) const = default;
};

struct GapPlan {
    std::vector<GapRun> runs; // from left to right; empty when the first step needs more than a plan
    int growth = 0;           // columns that the alignment becomes longer
    int cursor = 0;           // where the cursor stands after them, a shown column
};

GapPlan plan_gaps(const AlignedRows& rows);

// Puts the gaps into a text that begins at column `first`, no run before it; what leaves the end is lost.
void insert_gaps(std::span<char> text, int first, std::span<const GapRun> runs);

} // namespace kq
