// kernel: gap compaction: the residues of a region are pushed to one of its ends.
#pragma once

#include <span>

namespace kq {

enum class Direction { left = 0, right = 1 };

// Moves what is no "*", "-" or blank to one end, in its order; "*" fills the rest.
void compact(std::span<char> region, Direction direction);

} // namespace kq
