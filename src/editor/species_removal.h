// screen: taking a species out of the alignment or out of its ensemble.
#pragma once

#include "editor/prompts.h"

#include <functional>

namespace kq {

enum class Removal {
    asked = 0,      // asks for confirmation and the reason
    unasked_est = 1 // from EST mode: no questions, "mode EST" as the reason
};

// Deletes the cursor's species from the alignment: -1 = cancelled, 0 = done. The row stays in the store,
// flagged; other ensembles keep it.
int destroy_sequence(Removal mode);
// Asks (by mode), writes the species to the rejects file and flags it: -1 = cancelled, 0 = done. A rejects
// file that cannot be written cancels, with a warning. `draw_again` draws what its boxes have covered; the
// alignment's rows by default.
int destroy_sequence_int(int species, Removal mode,
                         const std::function<void()>& draw_again = draw_rows_again);
// Takes the cursor's species out of its ensemble, when confirmed.
void discard_species();

} // namespace kq
