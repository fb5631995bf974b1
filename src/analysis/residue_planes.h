// kernel: aligned proteins as bit planes.
#pragma once

#include "analysis/bit_planes.h"
#include "analysis/weight_terms.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

namespace kq {

// The planes of a block of positions: amino acids; gaps; the bits of the amino acid's code, where they are
// needed; the rows and the columns of each term. A position without a bit in the first two is unknown.
struct ResidueLayout {
    static constexpr std::size_t residue = 0, gap = 1, codes = 2;
    std::size_t terms = 2; // the first plane of the terms
    std::size_t planes = 2;

    bool has_codes() const { return terms != codes; }
};

// Sequences of one length, each undefined until it is set: to clear them at once could take long. Unknown are
// the characters of `unknown` and all that are neither an amino acid nor a gap.
class ResiduePlanes {
public:
    ResiduePlanes(int species, int positions, const WeightTerms& weights, std::string_view unknown);

    // Sets or replaces one sequence (0-based); one at a time.
    void set(int species, std::span<const char> characters);

    const ResidueLayout& layout() const { return layout_; }
    std::size_t blocks_of_species() const { return blocks_; }
    const Plane* blocks(int species) const
    {
        return planes_.get() + static_cast<std::size_t>(species) * blocks_ * layout_.planes;
    }

private:
    ResidueLayout layout_;
    std::vector<BitsOfCharacter> bits_of_characters_; // eight planes after eight planes
    std::size_t blocks_;
    std::unique_ptr<Plane[]> planes_;
};

} // namespace kq
