// kernel: what a pair of aligned proteins has in common and how it differs.
#pragma once

#include "analysis/plane_counts.h"
#include "analysis/prot_weights.h"
#include "analysis/residue_planes.h"
#include "analysis/weight_sums.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace kq {

// Positions where either character is unknown, or both are gaps, count nowhere.
struct ProtCounts {
    std::int32_t comparable; // N: all other positions
    std::int32_t gaps;       // G: a gap against an amino acid
    // S: the weights of different amino acids, added in the order of the positions; each sum of a float and a
    // double is rounded to a float.
    float weights;

    friend bool operator==(const ProtCounts&, const ProtCounts&) = default;
};

// Sequences of one length, to be compared by weights. Weights of 0 and 1 are counted, any others added up.
// Unknown are the characters of `unknown` and all that are neither an amino acid nor a gap.
class ComparedProteins {
public:
    ComparedProteins(int species, int positions, const ProtWeights& weights, std::string_view unknown);

    // Sets or replaces one sequence (0-based); one at a time. Undefined before.
    void set(int species, std::span<const char> characters);

    // Compares species i with the species first_j .. first_j + counts.size() - 1. Several threads may.
    void count(int i, int first_j, std::span<ProtCounts> counts, Instructions instructions) const;

private:
    ResiduePlanes planes_;
    std::optional<WeightSums> sums_; // where the planes do not tell the weights
};

} // namespace kq
