// kernel: the order that numbers typed beside a list of species ask for.
#pragma once

#include <span>
#include <vector>

namespace kq {

inline constexpr int no_number = -1; // nothing typed; 0 = to be removed; else the wanted place, from 1

// numbers[i] is what was typed beside entry i of the list. The entries that remain, in their new order: a
// number leads to its place while that is free (the earlier entry wins); the others fill the free places from
// the first on, in their old order; then the places close up. A number beyond the list counts as none.
std::vector<int> reordered(std::span<const int> numbers);

} // namespace kq
