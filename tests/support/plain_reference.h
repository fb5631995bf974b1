// The plain versions of what is computed from column counts: one pass over the rows each. Tests compare with
// them, benchmarks stand beside them.
#pragma once

#include "editor/difference_counter.h"

#include <span>
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

// The differences on either side of a position, walked from the first column to the last.
Differences differences_beside(std::string_view a, std::string_view b,
                               const std::vector<unsigned char>& hidden, int position);

// Pushes the residues of a region to one end.
void compact(std::span<char> region, bool to_the_left);

} // namespace kq::plain
