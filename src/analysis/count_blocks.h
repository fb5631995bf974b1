// model: the counts of a block of pairs, and the cells of the matrices that hold them.
#pragma once

#include "analysis/pair_blocks.h"
#include "analysis/pair_counts.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace kq {

// Side of the blocks: the bit planes of so many species stay in the nearest cache, and a row of a block is
// whole lines of it.
inline constexpr int side_of_counts = 32;

// Kept by the rows of the matrix that a count is for: [i - first_i][j - first_j] in the lower triangle,
// [j - first_j][i - first_i] in the upper. So rows are copied, and no line of the cache is fetched twice.
struct BlockCounts {
    template <class Number>
    using Cells = std::array<std::array<Number, side_of_counts>, side_of_counts>;

    Cells<std::int32_t> transitions, deletions;
    Cells<std::int32_t> transversions, others;
    Cells<float> comparable;

    // Row and column are i - first_i and j - first_j.
    void put(std::size_t row, std::size_t column, const PairCounts& pair)
    {
        transitions[row][column] = pair.transitions;
        deletions[row][column] = pair.deletions;
        transversions[column][row] = pair.transversions;
        others[column][row] = pair.others;
        comparable[column][row] = static_cast<float>(pair.comparable);
    }
    PairCounts get(std::size_t row, std::size_t column) const
    {
        return {.comparable = static_cast<std::int32_t>(comparable[column][row]),
                .transitions = transitions[row][column],
                .transversions = transversions[column][row],
                .deletions = deletions[row][column],
                .others = others[column][row]};
    }
};

// A run of cells in one row of the matrices, and where a block has them.
struct BlockRow {
    std::size_t cells;       // of the first one in the matrix, see cell()
    std::size_t row, column; // of the first one in the block
    std::size_t length;
};
BlockRow lower_row(const PairBlock& block, int i);
BlockRow upper_row(const PairBlock& block, int j);

void write_counts(const PairBlock& block, const BlockCounts& counts);
void read_counts(const PairBlock& block, BlockCounts& counts);

// Has the cells of the lower and of the upper row fetched that are `row` rows into the block. Counting takes
// about as long as the memory takes to deliver them.
void prefetch_cells(const PairBlock& block, int row);

} // namespace kq
