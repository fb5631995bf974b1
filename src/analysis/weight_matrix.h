// format: weight matrices of proteins (.MAT).
//
// 400 numbers separated by white space, row by row: 20 rows of 20, in the order A C D E F G H I K L M N P Q R
// S T V W Y. Numbers are as scanf reads them ("1", "-.5", "2e-3"); how they are spread over lines does not
// matter. What follows the last of them is a remark of the file's author and is not read.
#pragma once

#include "analysis/prot_weights.h"

#include <string>

namespace kq {

// Far beyond any use, and sums over the longest rows stay far from overflow.
inline constexpr double max_weight = 1e6;

struct WeightMatrix {
    ProtWeights weights{};
    std::string error; // why the file is of no use, as a sentence; empty = none
};

WeightMatrix read_weight_matrix(const std::string& path);

// The matrix of a distance of proteins (0 to 7): "IDENTITE.MAT", "NOCONS.MAT" or "CONS.MAT".
std::string weight_matrix_name(int distance);

} // namespace kq
