// kernel: what a pair of aligned nucleic acids has in common and how it differs, counted on bit planes.
#pragma once

#include "analysis/base_planes.h"
#include "analysis/plane_counts.h"

#include <cstdint>
#include <span>

namespace kq {

// Positions where either character is unknown, or both are gaps, count nowhere.
struct PairCounts {
    std::int32_t comparable;    // all other positions: identities and all differences
    std::int32_t transitions;   // A against G, C against T or U
    std::int32_t transversions; // a purine against a pyrimidine
    std::int32_t deletions;     // a gap against anything else
    std::int32_t others;        // a base against a character without a code; two of these are identical

    friend bool operator==(const PairCounts&, const PairCounts&) = default;
};

// Only positions where both characters are bases count.
struct CompositionCounts {
    std::int32_t compared;
    std::int32_t purine_transitions, pyrimidine_transitions, transversions;
    std::int32_t A, C, G, T; // bases of both sequences: twice `compared` together

    friend bool operator==(const CompositionCounts&, const CompositionCounts&) = default;
};

// Counts species i against the species first_j .. first_j + counts.size() - 1.
void count_pairs(const BasePlanes& planes, int i, int first_j, std::span<PairCounts> counts,
                 Instructions instructions);
void count_pairs(const BasePlanes& planes, int i, int first_j, std::span<CompositionCounts> counts,
                 Instructions instructions);

} // namespace kq
