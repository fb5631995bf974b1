// screen: naming an ensemble.
#pragma once

#include <string_view>

namespace kq {

// Asks for ens_names[ens]; ESCAPE stores an empty name. Deliberate.
void ask_for_ensemble_name(int ens, std::string_view proposal);

} // namespace kq
