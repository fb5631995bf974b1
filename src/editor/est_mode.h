// screen: EST mode: fragments of a sequence are pasted into the master sequence.
#pragma once

#include "editor/editor.h"

namespace kq {

// Runs the mode; returns the first non-zero result of gere_affich_seq_est. It begins without a master.
int gere_mode_est();
// One pass of the mode's loop: 0 to go on, 1 to leave the mode.
int gere_affich_seq_est();

extern const ModeKeys est_keys; // app/est_keys.cpp

Redraw choose_master_key(); // the species under the cursor
// Pastes: the characters of the cursor's species that are no blanks replace those of the master.
Redraw paste_right_key(); // from the cursor on
Redraw paste_left_key();  // before the cursor
Redraw paste_character_key();
Redraw destroy_in_est_key(); // the species under the cursor, without questions unless it is the master

} // namespace kq
