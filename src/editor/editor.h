// screen: the editor's main loop.
#pragma once

#include "editor/redraw.h"
#include "screen/bindings.h"

#include <span>

namespace kq {

// Runs the editor on the loaded alignment; returns the first non-zero result of gere_affich_seq (-1).
int gere_seq();
// One pass of the loop: status line, key, action, redraw. 0 to go on, -1 to leave the editor.
int gere_affich_seq();

using EditorAction = Redraw (*)();
extern const KeyTable<EditorAction> editor_keys; // app/editor_keys.cpp

// The keys of another mode of the editor: its own, and those that do exactly what they do in the editor.
struct ModeKeys {
    KeyTable<EditorAction> own;
    std::span<const int> shared; // upper-case letters alone where own.folds_case

    const Binding<EditorAction>* find(int key) const; // null for a key that does nothing
};

// What every mode's loop does with a key: the cursor is shown while one is awaited; its action, if any, runs
// and what that asks for is drawn again.
int read_key_at_cursor();
Redraw run_key(const Binding<EditorAction>* binding); // null runs nothing

} // namespace kq
