// model: walking over the columns that are not hidden. Each function is one scan of the column flags at most.
#pragma once

#include <vector>

namespace kq {

int shown_between(int first, int last); // shown positions in [first, last)
int next_shown(int position);           // the first one at or after; nb_nuc_tot when there is none
int previous_shown(int position);       // the last one at or before; -1 when there is none
// The n-th shown position after (n > 0) or before (n < 0) this one; nb_nuc_tot or -1 when there are not as
// many. n = 0 gives the position itself.
int shown_away(int position, int n);
// The first `count` shown positions from this one on, or as many as there are.
std::vector<int> shown_from(int position, int count);

} // namespace kq
