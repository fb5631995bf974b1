// screen: editing a primary sequence: residues are typed into and deleted from one row.
#pragma once

#include "editor/redraw.h"
#include "screen/bindings.h"

namespace kq {

// Asks, then edits the cursor's row until ESCAPE. Nothing on a collapsed ensemble.
void modif_sequence();

// The keys of this mode but for the characters of the molecule's alphabet. leave_editor ends the mode.
using PrimaryAction = Redraw (*)();
extern const KeyTable<PrimaryAction> primary_keys; // app/editor_keys.cpp

Redraw primary_backspace();
Redraw primary_delete();

} // namespace kq
