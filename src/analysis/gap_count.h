// kernel: how many rows have a gap in each column.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace kq {

// Counts as a gap: blank, "*", "?", "$", "-" and NUL.
constexpr bool counts_as_gap(char c)
{
    return c == ' ' || c == '*' || c == '?' || c == '$' || c == '-' || c == '\0';
}

// For each of `columns` columns the number of rows with a gap there. A row that ends before a column has a
// gap there; what is beyond the last column does not count.
std::vector<std::uint32_t> count_gaps(std::span<const std::string_view> rows, std::size_t columns);

} // namespace kq
