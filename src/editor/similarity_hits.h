// model: the pattern of the similarity search, and the places where it was found.
#pragma once

#include "editor/similarity_kernel.h"

#include <array>
#include <string_view>

namespace kq {

inline constexpr int pattern_size = 100;                    // bytes of ss, closing NUL included
inline constexpr int max_hits = 40, max_species_hits = 100; // entries of the two rankings
// Residues taken from a row at most.
inline constexpr int short_pattern = 10, typed_pattern = 20, fragment_pattern = 40;

// The pattern, NUL-terminated. Written by set_pattern.
extern char ss[pattern_size];
// The ranked hits of the last search in one row: number of equal characters and 1-based start position; -1
// and 0 where there is none. Written by search_row.
extern std::array<int, max_hits> sim, posi;
// Entries of the last ranking: there, the smaller of nb_spec - 1 and max_hits (search_row, search_species),
// or in blasttable (do_blast).
extern int tophits;
// The ranked species of the last search in all rows: each one's best hit, as above, and its number, -1 where
// there is none. Written by search_species, which leaves sim and posi alone.
extern std::array<int, max_species_hits> sim_tous, posi_tous, esp_tous;

std::string_view pattern();
void set_pattern(std::string_view text); // at most pattern_size - 1 characters

inline constexpr int whole_row = -1; // as the window of a search

// Ranks the start positions of the pattern in a row: all of those that leave it room before nb_nuc_tot, or
// the ones less than `window` columns away from `column` (the first one `window` columns left of it too).
// Deliberate: near the row's end the latter need no room.
void search_row(std::string_view row, int window, int column);

enum SearchScope : int { all_species = 0, listed_species = 1, ensemble_species = 2 };
// Ranks the species of the scope by their best hit: all, those of the working list, or the members of any
// ensemble. Destroyed species and `excluded` (-1 = none) are left out. Of equal scores the lower number is
// first.
void search_species(int excluded, int scope);

// The text of a species that is searched: what lies beyond nb_nuc_tot is not.
std::string_view searched_text(int species);

} // namespace kq
