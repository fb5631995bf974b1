// kernel: gap compaction.
#include "tools/compaction.h"

#include <algorithm>
#include <cstddef>

namespace kq {

namespace {

// Every character is written to the next free place, which a residue alone takes up: no branch to predict.
template <typename Iterator>
void compact_towards(Iterator first, Iterator last)
{
    auto free = first;
    for (auto from = first; from != last; ++from) {
        const char c = *from;
        *free = c;
        free += static_cast<std::ptrdiff_t>(!is_compacted_gap(c));
    }
    std::fill(free, last, '*');
}

} // namespace

void compact(std::span<char> region, Direction direction)
{
    if (direction == Direction::left)
        compact_towards(region.begin(), region.end());
    else
        compact_towards(region.rbegin(), region.rend());
}

} // namespace kq
