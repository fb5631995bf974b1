// kernel: finds many patterns in many texts in one walk over them (the Aho-Corasick automaton).
#pragma once

#include <span>
#include <string_view>
#include <vector>

namespace kq {

// For each pattern the index of the first text that contains it as a substring, or -1. An empty pattern is
// found nowhere. The time grows with the length of all patterns and texts together.
std::vector<int> first_containing(std::span<const std::string_view> patterns,
                                  std::span<const std::string_view> texts);

} // namespace kq
