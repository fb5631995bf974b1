// model: the keyboard: from X keysyms and modifiers to key codes.
#pragma once

namespace kq {

struct KeyStroke {
    unsigned long keysym = 0; // after Shift, CapsLock and NumLock were applied by the keyboard mapping
    bool shift = false, control = false, alt = false, num_lock = false;
    unsigned char character =
        0; // what the stroke types in Latin-1 (control characters included), 0 = nothing
};

// The key code (raster/keys.h), or 0 for a stroke that is no key of the program: modifiers, strokes with Alt
// and function keys with modifiers that are not in the table.
int key_code_of(const KeyStroke& stroke);

} // namespace kq
