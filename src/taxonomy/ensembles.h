// screen: building an ensemble from a selection on the tree.
#pragma once

#include "taxonomy/ensemble_name.h" // ask_for_ensemble_name: a new ensemble gets its name

namespace kq {

// Fills ensemble `ens` on the tree screen: 0 = done, -1 = the user wants to load another alignment.
int construct_ensemble(int ens);

} // namespace kq
