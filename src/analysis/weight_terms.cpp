// kernel: matrices of the weights 0 and 1, written for bit planes.
#include "analysis/weight_terms.h"

#include <algorithm>

namespace kq {

namespace {

// Row by row: bit k for a 1 in column k.
using Bits = std::array<ResidueSet, amino_acids>;

// Planes that tell whether two residues differ.
constexpr std::size_t planes_of_code = 5;

// Each term takes a row, all rows that depend on it, and a column away.
std::vector<WeightTerm> terms_of(Bits rows)
{
    std::vector<WeightTerm> terms;
    for (;;) {
        const auto pivot = std::ranges::find_if(rows, [](ResidueSet bits) { return bits != 0; });
        if (pivot == rows.end()) return terms;
        WeightTerm term{0, *pivot};
        const ResidueSet column = *pivot & (~*pivot + 1);
        for (std::size_t k = 0; k < rows.size(); k++)
            if (rows[k] & column) {
                term.rows |= ResidueSet{1} << k;
                rows[k] ^= term.columns;
            }
        terms.push_back(term);
    }
}

Bits with_diagonal(Bits rows)
{
    for (std::size_t k = 0; k < rows.size(); k++)
        rows[k] |= ResidueSet{1} << k;
    return rows;
}

} // namespace

std::optional<WeightTerms> weight_terms(const ProtWeights& weights)
{
    Bits rows{};
    for (std::size_t x = 0; x < amino_acids; x++)
        for (std::size_t y = 0; y < amino_acids; y++) {
            if (x == y || weights[x][y] == 0) continue;
            if (weights[x][y] != 1) return {};
            rows[x] |= ResidueSet{1} << y;
        }
    // The diagonal is free where equal residues are left out by their codes.
    WeightTerms all{terms_of(rows), false}, differing{terms_of(with_diagonal(rows)), true};
    return differing.terms.size() + planes_of_code < all.terms.size() ? differing : all;
}

} // namespace kq
