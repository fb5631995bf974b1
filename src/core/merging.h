// model: the reference species of EST mode, and which species can be merged with it.
#pragma once

#include "core/store.h"

#include <array>
#include <string_view>

namespace kq {

extern int no_seq_ref; // the master sequence, -1 = none is chosen

// 1 = the species can be merged with the reference species, which itself counts, else 0. All 0 while there is
// no reference species. Written by mark_mergeables.
extern std::array<int, max_species> mergeable;

// Marks the species whose identifiers begin with the stem of the reference species' identifier.
void mark_mergeables();
// What the pieces of a sequence have in common: the identifier up to the first "." behind its "@", or the
// first "." of one without "@"; all of it when there is none.
std::string_view merging_stem(std::string_view identifier);

void mergeable_reset(); // no reference species

} // namespace kq
