// kernel: matrices of the weights 0 and 1, written for bit planes.
#pragma once

#include "analysis/prot_weights.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace kq {

// A set of amino acids, bit k for the one in row and column k of a matrix.
using ResidueSet = std::uint32_t;

struct WeightTerm {
    ResidueSet rows, columns;
};

// The weight of a residue x against a residue y is the number of the terms with x in `rows` and y in
// `columns`, modulo 2: as many terms as the matrix has rank over the field of two elements.
struct WeightTerms {
    std::vector<WeightTerm> terms;
    // The terms say nothing about equal residues, which have no weight.
    bool differing_only = false;
};

// Nothing when a weight off the diagonal is neither 0 nor 1.
std::optional<WeightTerms> weight_terms(const ProtWeights& weights);

} // namespace kq
