// screen: marking a region of columns, for the commands that work on one.
#pragma once

#include "editor/editor.h"

namespace kq {

// Lets the user mark pos_deb and pos_fin, 0-based and inclusive: ok, or escaped. The screen is drawn for it;
// what comes after it draws the editor's again.
int select_region();
// One pass of the loop, in kq_mode 2: 0 to go on, 1 when the region is complete, -1 when it is given up.
int gere_affich_seq_region();

extern const ModeKeys region_keys; // app/region_keys.cpp

Redraw mark_beginning_key();
Redraw mark_end_key();

} // namespace kq
