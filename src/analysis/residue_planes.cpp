// kernel: aligned proteins as bit planes.
#include "analysis/residue_planes.h"

#include "core/residues.h"

#include <algorithm>

namespace kq {

namespace {

constexpr ResidueSet all_residues = (ResidueSet{1} << amino_acids) - 1;
constexpr int bits_of_code = 5;

// The residues whose code has the bit.
ResidueSet residues_with(int bit)
{
    ResidueSet residues = 0;
    for (std::size_t k = 0; k < amino_acids; k++)
        residues |= static_cast<ResidueSet>((k + 1) >> bit & 1) << k;
    return residues;
}

} // namespace

ResiduePlanes::ResiduePlanes(int species, int positions, const WeightTerms& weights, std::string_view unknown)
    : blocks_(blocks_of_positions(positions))
{
    std::vector<ResidueSet> residues = {all_residues, 0}; // that have a bit in the plane
    if (weights.differing_only)
        for (int bit = 0; bit < bits_of_code; bit++)
            residues.push_back(residues_with(bit));
    layout_.terms = residues.size();
    for (const auto& [rows, columns] : weights.terms) {
        residues.push_back(rows);
        residues.push_back(columns);
    }
    layout_.planes = residues.size();
    planes_ =
        std::make_unique_for_overwrite<Plane[]>(static_cast<std::size_t>(species) * blocks_ * layout_.planes);

    bits_of_characters_.resize((layout_.planes + 7) / 8);
    for (std::size_t c = 0; c < prot_codes.size(); c++) {
        if (unknown.find(static_cast<char>(c)) != unknown.npos) continue;
        const int code = prot_codes[c];
        if (code == code_gap) bits_of_characters_[0][c] = 1U << ResidueLayout::gap;
        if (code < 1 || code > static_cast<int>(amino_acids)) continue;
        for (std::size_t plane = 0; plane < layout_.planes; plane++)
            if (residues[plane] >> (code - 1) & 1)
                bits_of_characters_[plane / 8][c] |= static_cast<std::uint8_t>(1U << plane % 8);
    }
}

void ResiduePlanes::set(int species, std::span<const char> characters)
{
    Plane* block = planes_.get() + static_cast<std::size_t>(species) * blocks_ * layout_.planes;
    for (std::size_t k = 0; k < blocks_; k++, block += layout_.planes) {
        std::fill_n(block, layout_.planes, Plane{});
        const auto from = std::min(k * positions_of_block, characters.size());
        const auto here = characters.subspan(from).first(
            std::min<std::size_t>(positions_of_block, characters.size() - from));
        for (std::size_t p = 0; p < here.size(); p += 8) {
            const auto eight = here.subspan(p, std::min<std::size_t>(8, here.size() - p));
            for (std::size_t first = 0; first < layout_.planes; first += 8) {
                auto bits = bits_of(eight, bits_of_characters_[first / 8]);
                for (std::size_t plane = first; plane < std::min(first + 8, layout_.planes);
                     plane++, bits >>= 1)
                    block[plane][p / 64] |= lowest_bits(bits) << p % 64;
            }
        }
    }
}

} // namespace kq
