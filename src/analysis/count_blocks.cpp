// model: the counts of a block of pairs, and the cells of the matrices that hold them.
#include "analysis/count_blocks.h"

#include "analysis/analysed.h"
#include "analysis/distance_matrix.h"

#include <algorithm>

namespace kq {

namespace {

constexpr std::size_t cells_of_line = 16; // of the cache

template <class Number>
void write(const BlockRow& run, const BlockCounts::Cells<Number>& from, Number* matrix)
{
    std::copy_n(from[run.row].data() + run.column, run.length, matrix + run.cells);
}

template <class Number>
void read(const BlockRow& run, BlockCounts::Cells<Number>& to, const Number* matrix)
{
    std::copy_n(matrix + run.cells, run.length, to[run.row].data() + run.column);
}

template <class Number>
void prefetch(const BlockRow& run, const Number* matrix)
{
    if (run.length == 0) return;
    for (std::size_t k = 0; k < run.length; k += cells_of_line)
        __builtin_prefetch(matrix + run.cells + k, 1);
    __builtin_prefetch(matrix + run.cells + run.length - 1, 1);
}

// Calls lower(run) and upper(run) for each row.
template <class Lower, class Upper>
void for_rows(const PairBlock& block, Lower lower, Upper upper)
{
    for (int i = block.first_i; i < block.end_i; i++)
        lower(lower_row(block, i));
    for (int j = block.first_j; j < block.end_j; j++)
        upper(upper_row(block, j));
}

} // namespace

BlockRow lower_row(const PairBlock& block, int i)
{
    return {.cells = cell(i, block.first_j, nb_spec_auto),
            .row = static_cast<std::size_t>(i - block.first_i),
            .column = 0,
            .length = static_cast<std::size_t>(std::max(0, block.end_of_row(i) - block.first_j))};
}

BlockRow upper_row(const PairBlock& block, int j)
{
    const int first_i = std::max(block.first_i, j + 1);
    return {.cells = cell(j, first_i, nb_spec_auto),
            .row = static_cast<std::size_t>(j - block.first_j),
            .column = static_cast<std::size_t>(first_i - block.first_i),
            .length = static_cast<std::size_t>(std::max(0, block.end_i - first_i))};
}

void write_counts(const PairBlock& block, const BlockCounts& counts)
{
    for_rows(
        block,
        [&](const BlockRow& run) {
            write(run, counts.transitions, d1);
            write(run, counts.deletions, d2);
        },
        [&](const BlockRow& run) {
            write(run, counts.transversions, d1);
            write(run, counts.others, d2);
            write(run, counts.comparable, dist);
        });
}

void read_counts(const PairBlock& block, BlockCounts& counts)
{
    for_rows(
        block,
        [&](const BlockRow& run) {
            read(run, counts.transitions, d1);
            read(run, counts.deletions, d2);
        },
        [&](const BlockRow& run) {
            read(run, counts.transversions, d1);
            read(run, counts.others, d2);
            read(run, counts.comparable, dist);
        });
}

void prefetch_cells(const PairBlock& block, int row)
{
    if (block.first_i + row < block.end_i) {
        const auto run = lower_row(block, block.first_i + row);
        prefetch(run, d1);
        prefetch(run, d2);
    }
    if (block.first_j + row < block.end_j) {
        const auto run = upper_row(block, block.first_j + row);
        prefetch(run, d1);
        prefetch(run, d2);
        prefetch(run, dist);
    }
}

} // namespace kq
