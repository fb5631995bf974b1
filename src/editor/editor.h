// screen: the editor's main loop.
#pragma once

#include "editor/redraw.h"
#include "screen/bindings.h"

namespace kq {

// Runs the editor on the loaded alignment; returns the first non-zero result of gere_affich_seq (-1).
int gere_seq();
// One pass of the loop: status line, key, action, redraw. 0 to go on, -1 to leave the editor.
int gere_affich_seq();

using EditorAction = Redraw (*)();
extern const KeyTable<EditorAction> editor_keys; // app/editor_keys.cpp

} // namespace kq
