// kernel: sums of weights of aligned proteins in single precision, added in the order of the positions.
#include "analysis/weight_sums.h"

#include "core/residues.h"
#include "core/vector_clones.h"

#include <algorithm>

namespace kq {

WeightSums::WeightSums(int species, int positions, const ProtWeights& weights, std::string_view unknown)
    : positions_(static_cast<std::size_t>(positions))
    , codes_((static_cast<std::size_t>(species) + lanes - 1) / lanes * positions_)
{
    for (std::size_t c = 0; c < code_of_.size(); c++)
        if (prot_codes[c] > 0 && prot_codes[c] != code_unknown_prot)
            code_of_[c] = static_cast<std::uint8_t>(prot_codes[c]);
    for (const char c : unknown)
        code_of_[static_cast<unsigned char>(c)] = 0;
    for (std::size_t x = 0; x < amino_acids; x++)
        for (std::size_t y = 0; y < amino_acids; y++)
            if (x != y) weights_[x + 1][y + 1] = weights[x][y];
}

void WeightSums::set(int species, std::span<const char> characters)
{
    const auto place = static_cast<std::size_t>(species);
    Codes* const group = codes_.data() + place / lanes * positions_;
    for (std::size_t p = 0; p < positions_; p++)
        group[p][place % lanes] =
            p < characters.size() ? code_of_[static_cast<unsigned char>(characters[p])] : 0;
}

// `row` is one lane of a group.
KQ_VECTOR_CLONES
void WeightSums::add_lanes(const std::uint8_t* row, const Codes* columns, std::size_t positions,
                           const Weights* weights, float* sums)
{
    std::array<float, lanes> sum{};
    std::array<double, lanes> weight;
    for (std::size_t p = 0; p < positions; p++) {
        if (row[p * lanes] == 0) continue;
        const double* const weights_of = weights[row[p * lanes]].data();
        // Loads one by one are faster than the gathering that compilers make of a loop.
#pragma GCC unroll 32
        for (std::size_t lane = 0; lane < lanes; lane++)
            weight[lane] = weights_of[columns[p][lane]];
        for (std::size_t lane = 0; lane < lanes; lane++)
            sum[lane] = static_cast<float>(static_cast<double>(sum[lane]) + weight[lane]);
    }
    std::copy_n(sum.begin(), lanes, sums);
}

void WeightSums::add(int i, int first_j, std::span<float> sums) const
{
    const auto group_of = [this](std::size_t species) {
        return codes_.data() + species / lanes * positions_;
    };
    const auto row = static_cast<std::size_t>(i);
    const auto first = static_cast<std::size_t>(first_j), end = first + sums.size();
    for (std::size_t from = first; from < end;) {
        const std::size_t to = std::min(end, from / lanes * lanes + lanes);
        std::array<float, lanes> of_group;
        add_lanes(group_of(row)->data() + row % lanes, group_of(from), positions_, weights_.data(),
                  of_group.data());
        std::copy_n(of_group.begin() + static_cast<std::ptrdiff_t>(from % lanes), to - from,
                    sums.begin() + static_cast<std::ptrdiff_t>(from - first));
        from = to;
    }
}

} // namespace kq
