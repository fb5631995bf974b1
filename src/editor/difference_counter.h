// kernel: where two aligned rows differ, on either side of a column.
#pragma once

#include <span>
#include <string_view>

namespace kq {

struct SideDifferences {
    int count = 0;
    // Shown columns from one difference to the next (1 for neighbours), on the average of the side; 0 with
    // fewer than two differences.
    double spacing = 0;
    bool operator==(const SideDifferences&) const = default;
};

struct Differences {
    SideDifferences left, right; // the columns before `position`, and those from it on
    bool operator==(const Differences&) const = default;
};

// A difference is a shown column in which the rows hold different characters and neither a blank. `hidden` is
// 0 for a shown column. The rows read as blanks beyond their end; neither is longer than `hidden`.
Differences count_differences_beside(std::string_view a, std::string_view b,
                                     std::span<const unsigned char> hidden, int position);

} // namespace kq
