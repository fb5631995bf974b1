// screen: finding species by the beginning or a part of their name.
#pragma once

#include "taxonomy/tree_draw.h"

#include <string>

namespace kq {

inline constexpr int longest_search = 78;
extern std::string part_spec; // what was looked for last, at most longest_search characters

enum SearchHow : int { search_beginning = 0, search_part = 1 };

// Asks for a text and shows the species that have it on the species screen; how the tree screen is to be
// drawn again.
TreeRedraw cherche_begin_part_ident(int how);

// Makes the working list every species, neither destroyed nor masked, whose identifier begins with part_spec
// or contains it, byte by byte. The beginning of a name is a capital letter: part_spec gets one first.
void select_begin_part_ident(int how);

} // namespace kq
