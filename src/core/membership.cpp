// model: which ensembles a species is a member of.
#include "core/membership.h"

#include <algorithm>
#include <array>
#include <vector>

namespace kq {

namespace {

std::array<EnsembleBits, max_species> noted{};

EnsembleBits& noted_of(int species)
{
    return noted[static_cast<std::size_t>(species)];
}

std::vector<EnsembleBits> listed()
{
    std::vector<EnsembleBits> result(max_species);
    for (int e = 0; e < nb_ens; e++)
        for (const int species : members(e))
            result[static_cast<std::size_t>(species)] |= ensemble_bit(e);
    return result;
}

} // namespace

EnsembleBits ensembles_of(int species)
{
    return noted_of(species);
}

void note_membership(int ensemble, std::span<const int> left, std::span<const int> joined)
{
    for (const int species : left)
        noted_of(species) &= ~ensemble_bit(ensemble);
    for (const int species : joined)
        noted_of(species) |= ensemble_bit(ensemble);
}

void note_ensemble_removed(int ensemble)
{
    const auto lower = ensemble_bit(ensemble) - 1;
    for (auto& bits : noted)
        bits = (bits & lower) | ((bits & ~lower) >> 1);
}

void membership_reread()
{
    std::ranges::copy(listed(), noted.begin());
}

std::string membership_error()
{
    const bool same = std::ranges::equal(listed(), noted);
    return same ? "" : "the noted ensembles of the species are not those of the lists";
}

} // namespace kq
