// model: the names of keys, for scripts of keys and for the key reference.
#pragma once

#include <string>
#include <string_view>

namespace kq {

// The code (raster/keys.h) of a key's name, or 0 when there is no such key. Names in any case: "F1".."F12",
// "Enter", "Escape" or "Esc", "Tab", "BackSpace", "Delete" or "Del", "Insert" or "Ins", "Home", "End",
// "PgUp", "PgDn", "Up", "Down", "Left", "Right", "Space", with the prefixes "S-" (Shift), "C-" (Ctrl) and
// "A-" (Alt) where the program has such a key; "A-KPMinus" and "A-KPPlus" on the keypad, "A-<"; "C-A".."C-Z"
// are control characters. One single character stands for itself, and there case counts.
int key_code(std::string_view name);

// The name of a code as the key reference prints it ("S-F10", "Q", "Space"); empty when it has none.
std::string key_name(int code);

} // namespace kq
