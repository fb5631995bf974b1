// The plain neighbour joining: every row sum and every Q computed again for every join, rows and columns
// moved as the matrix shrinks.
//
// Row sums, Q, its running minimum and branch lengths are double; the new distances of a join are computed
// step by step in single precision: (d(k, j) + d(k, i)) - d(i, j), then halved.
#pragma once

#include <span>
#include <string>
#include <vector>

namespace kq::plain {

struct Join {
    int first, second;                  // rows of the matrix as it is then, first < second (nei1, nei2)
    double first_length, second_length; // of the branches above the two subtrees
};

struct JoinedTree {
    std::vector<Join> joins; // n - 2 of them
    double third_length = 0; // of the subtree that the last join leaves over
    std::string text;        // one line without its end, from "(" to ");"
};

// `matrix` has names.size() rows and columns, row-major, of which the triangle below the diagonal is read.
// Fewer than three names have no tree: no join and no text. Blanks in names become "_".
JoinedTree joined_tree(std::span<const float> matrix, const std::vector<std::string>& names);

} // namespace kq::plain
