// model: which ensembles a species is a member of, the lists of core/store.h read the other way round.
// Written by core/edit.h along with the lists.
#pragma once

#include "core/store.h"

#include <cstdint>
#include <span>
#include <string>

namespace kq {

using EnsembleBits = std::uint64_t; // bit e stands for ensemble e
static_assert(max_ensembles <= 64);

inline EnsembleBits ensemble_bit(int ensemble)
{
    return EnsembleBits{1} << ensemble;
}

EnsembleBits ensembles_of(int species);

void note_membership(int ensemble, std::span<const int> left, std::span<const int> joined);
// An ensemble has no members left and is taken out: the later ones move down by one.
void note_ensemble_removed(int ensemble);
// Reads the lists anew.
void membership_reread();
// Empty, or that a list says something else.
std::string membership_error();

} // namespace kq
