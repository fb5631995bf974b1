// kernel: what a pair of aligned nucleic acids has in common and how it differs, counted on bit planes.
//
// Contents: the sets of positions that are counted; characters without a code; the interface.
#include "analysis/pair_counts.h"

#include <algorithm>
#include <bit>

namespace kq {

namespace {

// ---- the sets ---------------------------------------------------------------------------------------------

// As many positions of a sequence as the vector has bits.
template <class Vector>
struct Planes {
    Vector base, gap, purine, keto;
};

// The vector's positions from 64 * word on.
template <class Vector>
[[gnu::always_inline]] inline void load(Planes<Vector>& planes, const PlaneBlock& block, std::size_t word)
{
    load(planes.base, block.base, word);
    load(planes.gap, block.gap, word);
    load(planes.purine, block.purine, word);
    load(planes.keto, block.keto, word);
}

struct DifferenceSets {
    using Counts = PairCounts;
    using Block = PlaneBlock;
    static constexpr std::size_t number = 4;
    std::size_t stride() const { return 1; }

    template <class Vector>
    [[gnu::always_inline]] void select(const PlaneBlock* block_a, const PlaneBlock* block_b, std::size_t word,
                                       Vector* set) const
    {
        Planes<Vector> a, b;
        load(a, *block_a, word);
        load(b, *block_b, word);
        const Vector bases = a.base & b.base;
        const Vector transversions = bases & (a.purine ^ b.purine);
        set[0] = bases;
        set[1] = bases & (a.keto ^ b.keto) & ~transversions;
        set[2] = transversions;
        set[3] = (a.base & b.gap) | (a.gap & b.base);
    }
    [[gnu::always_inline]] Counts counts(const std::int32_t* size) const
    {
        return {.comparable = size[0] + size[3],
                .transitions = size[1],
                .transversions = size[2],
                .deletions = size[3],
                .others = 0};
    }
};

struct CompositionSets {
    using Counts = CompositionCounts;
    using Block = PlaneBlock;
    static constexpr std::size_t number = 9;
    std::size_t stride() const { return 1; }

    template <class Vector>
    [[gnu::always_inline]] void select(const PlaneBlock* block_a, const PlaneBlock* block_b, std::size_t word,
                                       Vector* set) const
    {
        Planes<Vector> a, b;
        load(a, *block_a, word);
        load(b, *block_b, word);
        const Vector bases = a.base & b.base, keto = bases & (a.keto ^ b.keto);
        set[0] = bases;
        set[1] = bases & (a.purine ^ b.purine);
        set[2] = a.purine & b.purine;
        set[3] = set[2] & keto;
        set[4] = keto & ~(a.purine | b.purine);
        set[5] = a.purine & a.keto & b.base;  // a's G
        set[6] = b.purine & b.keto & a.base;  // b's
        set[7] = a.keto & ~a.purine & b.base; // a's T
        set[8] = b.keto & ~b.purine & a.base; // b's
    }
    [[gnu::always_inline]] Counts counts(const std::int32_t* size) const
    {
        // A transversion has one purine.
        const std::int32_t purines = size[1] + 2 * size[2], G = size[5] + size[6], T = size[7] + size[8];
        return {.compared = size[0],
                .purine_transitions = size[3],
                .pyrimidine_transitions = size[4],
                .transversions = size[1],
                .A = purines - G,
                .C = 2 * size[0] - purines - T,
                .G = G,
                .T = T};
    }
};

// ---- characters without a code ----------------------------------------------------------------------------

// Adds what they change; `a` and `b` are species.
void count_uncoded(const BasePlanes& planes, int a, int b, PairCounts& counts)
{
    const auto at = [](std::span<const std::uint64_t> words, std::size_t k) {
        return words.empty() ? 0 : words[k];
    };
    const auto uncoded_a = planes.uncoded(a), uncoded_b = planes.uncoded(b);
    const auto blocks_a = planes.blocks(a), blocks_b = planes.blocks(b);
    for (std::size_t k = 0; k < std::max(uncoded_a.size(), uncoded_b.size()); k++) {
        const auto& block_a = blocks_a[k / words_of_plane];
        const auto& block_b = blocks_b[k / words_of_plane];
        const auto word = k % words_of_plane;
        const auto of_a = at(uncoded_a, k), of_b = at(uncoded_b, k);
        const auto identities = std::popcount(of_a & of_b);
        const auto others = std::popcount((of_a & block_b.base[word]) | (of_b & block_a.base[word]));
        const auto deletions = std::popcount((of_a & block_b.gap[word]) | (of_b & block_a.gap[word]));
        counts.comparable += identities + others + deletions;
        counts.others += others;
        counts.deletions += deletions;
    }
}

// ---- the interface ----------------------------------------------------------------------------------------

template <class Sets>
void count_sets(const BasePlanes& planes, int i, int first_j, std::span<typename Sets::Counts> counts,
                Instructions instructions)
{
    const auto a = planes.blocks(i);
    count_planes(Sets{}, a.data(), planes.blocks(first_j).data(), a.size(), counts, instructions);
}

} // namespace

void count_pairs(const BasePlanes& planes, int i, int first_j, std::span<PairCounts> counts,
                 Instructions instructions)
{
    if (counts.empty()) return;
    count_sets<DifferenceSets>(planes, i, first_j, counts, instructions);
    if (!planes.any_uncoded()) return;
    for (int j = first_j; auto& pair : counts)
        count_uncoded(planes, i, j++, pair);
}

void count_pairs(const BasePlanes& planes, int i, int first_j, std::span<CompositionCounts> counts,
                 Instructions instructions)
{
    if (counts.empty()) return;
    count_sets<CompositionSets>(planes, i, first_j, counts, instructions);
}

} // namespace kq
