// kernel: what a pair of aligned proteins has in common and how it differs.
#include "analysis/prot_counts.h"

#include <algorithm>
#include <vector>

namespace kq {

namespace {

// Counts of ones are exact sums in single precision below this.
constexpr int exact_in_float = 1 << 24;

struct ResidueSets {
    using Counts = ProtCounts;
    using Block = Plane;
    static constexpr std::size_t number = 3;
    const ResidueLayout& layout;

    std::size_t stride() const { return layout.planes; }

    template <class Vector>
    [[gnu::always_inline]] void select(const Plane* a, const Plane* b, std::size_t word, Vector* set) const
    {
        Vector residue_a, residue_b, gap_a, gap_b, x, y;
        load(residue_a, a[ResidueLayout::residue], word);
        load(residue_b, b[ResidueLayout::residue], word);
        load(gap_a, a[ResidueLayout::gap], word);
        load(gap_b, b[ResidueLayout::gap], word);
        set[0] = residue_a & residue_b;
        set[1] = (residue_a & gap_b) | (gap_a & residue_b);

        Vector weighted{}, differing{};
        for (std::size_t term = layout.terms; term < layout.planes; term += 2) {
            load(x, a[term], word);
            load(y, b[term + 1], word);
            weighted ^= x & y;
        }
        for (std::size_t bit = ResidueLayout::codes; bit < layout.terms; bit++) {
            load(x, a[bit], word);
            load(y, b[bit], word);
            differing |= x ^ y;
        }
        if (layout.has_codes()) weighted &= differing;
        set[2] = weighted;
    }
    ProtCounts counts(const std::int32_t* size) const
    {
        return {.comparable = size[0] + size[1], .gaps = size[1], .weights = static_cast<float>(size[2])};
    }
};

std::optional<WeightTerms> countable(const ProtWeights& weights, int positions)
{
    return positions < exact_in_float ? weight_terms(weights) : std::nullopt;
}

} // namespace

ComparedProteins::ComparedProteins(int species, int positions, const ProtWeights& weights,
                                   std::string_view unknown)
    : planes_(species, positions, countable(weights, positions).value_or(WeightTerms{}), unknown)
{
    if (!countable(weights, positions)) sums_.emplace(species, positions, weights, unknown);
}

void ComparedProteins::set(int species, std::span<const char> characters)
{
    planes_.set(species, characters);
    if (sums_) sums_->set(species, characters);
}

void ComparedProteins::count(int i, int first_j, std::span<ProtCounts> counts,
                             Instructions instructions) const
{
    count_planes(ResidueSets{planes_.layout()}, planes_.blocks(i), planes_.blocks(first_j),
                 planes_.blocks_of_species(), counts, instructions);
    if (!sums_) return;
    std::vector<float> sums(counts.size());
    sums_->add(i, first_j, sums);
    for (std::size_t k = 0; k < counts.size(); k++)
        counts[k].weights = sums[k];
}

} // namespace kq
