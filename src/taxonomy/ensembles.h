// screen: building an ensemble from a selection on the tree, and naming it.
#pragma once

#include <string_view>

namespace kq {

// Fills ensemble `ens` on the tree screen: 0 = done, -1 = the user wants to load another alignment.
int construct_ensemble(int ens);
// Asks for ens_names[ens]; ESCAPE stores an empty name. Deliberate.
void ask_for_ensemble_name(int ens, std::string_view proposal);

} // namespace kq
