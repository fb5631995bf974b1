// screen: ensembles shown species by species or collapsed to their consensus.
#pragma once

namespace kq {

// Switches an ensemble between the two; the cursor goes to the top row.
void toggle_ensemble_display(int e);

} // namespace kq
