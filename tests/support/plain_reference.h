// The plain versions of what is computed from column counts: one pass over the rows each. Tests compare with
// them, benchmarks stand beside them.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kq::plain {

// One text for each row counted; a row reads as blanks beyond its end, and nothing beyond `columns` is read.
using Texts = std::vector<std::string_view>;

std::string consensus_line(const Texts& rows, int columns, int type);

struct Consensus {
    std::string characters;
    std::vector<unsigned char> levels;
};
Consensus ensemble_consensus(const Texts& rows, int columns, int type, const char* letters);

// 255 where every row holds "*", a blank, "$" or "-", else 0.
std::vector<unsigned char> hidden_columns(const Texts& rows, int columns);

} // namespace kq::plain
