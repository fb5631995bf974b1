// kernel: where two aligned rows differ, on either side of a column.
#include "editor/difference_counter.h"

#include "core/vector_clones.h"

#include <algorithm>
#include <cstddef>

namespace kq {

namespace {

bool differ(char a, char b, unsigned char hidden)
{
    return a != b && a != ' ' && b != ' ' && hidden == 0;
}

KQ_VECTOR_CLONES
int count_differing(const char* a, const char* b, const unsigned char* hidden, std::size_t columns)
{
    int count = 0;
    for (std::size_t i = 0; i < columns; i++)
        count += static_cast<int>((a[i] != b[i]) & (a[i] != ' ') & (b[i] != ' ') & (hidden[i] == 0));
    return count;
}

// The spacings between the first and the last difference add up to the shown columns after the first.
SideDifferences count_side(std::string_view a, std::string_view b, std::span<const unsigned char> hidden)
{
    SideDifferences side;
    side.count = count_differing(a.data(), b.data(), hidden.data(), a.size());
    if (side.count < 2) return side;
    std::size_t first = 0, last = a.size() - 1;
    while (!differ(a[first], b[first], hidden[first]))
        first++;
    while (!differ(a[last], b[last], hidden[last]))
        last--;
    const auto shown = std::ranges::count(hidden.subspan(first + 1, last - first), 0);
    side.spacing = static_cast<double>(shown) / (side.count - 1);
    return side;
}

} // namespace

Differences count_differences_beside(std::string_view a, std::string_view b,
                                     std::span<const unsigned char> hidden, int position)
{
    const auto columns = std::min(a.size(), b.size()); // beyond it one of them holds blanks
    const auto middle = std::min(static_cast<std::size_t>(position), columns);
    const auto right = columns - middle;
    return {count_side(a.substr(0, middle), b.substr(0, middle), hidden.first(middle)),
            count_side(a.substr(middle, right), b.substr(middle, right), hidden.subspan(middle, right))};
}

} // namespace kq
