// kernel: sums of weights of aligned proteins in single precision, added in the order of the positions.
#pragma once

#include "analysis/prot_weights.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace kq {

// Sequences of one length, and weights of any kind. Characters of `unknown` have none.
class WeightSums {
public:
    WeightSums(int species, int positions, const ProtWeights& weights, std::string_view unknown);

    // Replaces one sequence (0-based); one at a time. All are unknown at first.
    void set(int species, std::span<const char> characters);

    // The sums of species i against the species first_j .. first_j + sums.size() - 1: a weight for each
    // position with two different amino acids, each sum of a float and a double rounded to a float.
    void add(int i, int first_j, std::span<float> sums) const;

private:
    // The codes of a group of species side by side; 0 for what is no amino acid.
    static constexpr std::size_t lanes = 32;
    using Codes = std::array<std::uint8_t, lanes>;
    // By code. What is no amino acid and what is equal has the weight 0, which changes no sum.
    using Weights = std::array<double, 32>;

    std::size_t positions_;
    std::array<std::uint8_t, 256> code_of_{};
    std::vector<Codes> codes_; // [group][position]
    std::array<Weights, amino_acids + 1> weights_{};

    static void add_lanes(const std::uint8_t* row, const Codes* columns, std::size_t positions,
                          const Weights* weights, float* sums);
};

} // namespace kq
