// screen: selecting species by the completeness of their sequences.
#pragma once

namespace kq {

// Offers 25 percentages of missing characters and selects those species of the working list that have at
// most (direction 0) or more than (direction 1) the chosen one.
void select_partial_seq(int direction);

// Percentage of missing characters among the columns of a species' row, truncated; those that its text does
// not reach are missing.
int missing_percentage(int species);

} // namespace kq
