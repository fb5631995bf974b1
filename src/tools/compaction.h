// kernel: gap compaction: the residues of a region are pushed to one of its ends.
#pragma once

#include <span>

namespace kq {

enum class Direction { left = 0, right = 1 };

// What compaction closes up.
constexpr bool is_compacted_gap(char c)
{
    return c == '*' || c == '-' || c == ' ';
}
// Moves the other characters to one end, in their order; "*" fills the rest.
void compact(std::span<char> region, Direction direction);

} // namespace kq
