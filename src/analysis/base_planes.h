// kernel: aligned nucleic acids as bit planes.
#pragma once

#include "analysis/bit_planes.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

namespace kq {

// 512 positions of a sequence. One that has no bit in `base` or `gap` is unknown, beyond the end, or holds a
// character without a code. A: purine; C: neither; G: purine and keto; T and U: keto.
struct PlaneBlock {
    Plane base, gap, purine, keto;
};

// Sequences of one length, each undefined until it is set: to clear them at once could take long.
class BasePlanes {
public:
    BasePlanes(int species, int positions);

    // Sets or replaces one sequence (0-based); one at a time. Characters of `unknown` are unknown whatever
    // their code.
    void set(int species, std::span<const char> characters, std::string_view unknown);

    std::span<const PlaneBlock> blocks(int species) const
    {
        return {blocks_.get() + static_cast<std::size_t>(species) * blocks_of_species_, blocks_of_species_};
    }
    // Whether a sequence has known characters without a code (lower-case letters...).
    bool any_uncoded() const { return any_uncoded_; }
    // Where those are in a sequence, words_of_plane words a block; empty when there are none.
    std::span<const std::uint64_t> uncoded(int species) const
    {
        return uncoded_[static_cast<std::size_t>(species)];
    }

private:
    bool any_uncoded_ = false;
    std::size_t blocks_of_species_;
    std::unique_ptr<PlaneBlock[]> blocks_;
    std::vector<std::vector<std::uint64_t>> uncoded_;
};

} // namespace kq
