// kernel: weights of the differences between amino acids.
#pragma once

#include <array>
#include <cstddef>

namespace kq {

inline constexpr std::size_t amino_acids = 20;

// [code of the first residue - 1][code of the second residue - 1], the codes being those of code_prot. The
// diagonal is never used.
using ProtWeights = std::array<std::array<double, amino_acids>, amino_acids>;

} // namespace kq
