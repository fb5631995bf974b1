// kernel: gap compaction.
#include "tools/compaction.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace kq {

namespace {

constexpr auto places_taken = [] {
    std::array<unsigned char, 256> places{};
    places.fill(1);
    for (const char gap : {'*', '-', ' '})
        places[static_cast<unsigned char>(gap)] = 0;
    return places;
}();

// Every character is written to the next free place, which a residue alone takes up. The table keeps
// compilers from making branches of that, which no processor could predict.
template <typename Iterator>
void compact_towards(Iterator first, Iterator last)
{
    auto free = first;
    for (auto from = first; from != last; ++from) {
        const char c = *from;
        *free = c;
        free += places_taken[static_cast<unsigned char>(c)];
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
