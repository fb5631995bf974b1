// The plain version of the similarity search: a walk along the row from every start position.
#pragma once

#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace kq::plain {

struct Hit {
    int score, position; // 0-based; -1 and -1 = none
};
// The `places` best start positions first <= p < last of a row, the leftmost first among equal scores.
std::vector<Hit> similar_positions(std::string_view row, std::string_view pattern, int first, int last,
                                   int places);

std::string random_text(std::mt19937& random, std::string_view letters, int length);

} // namespace kq::plain
