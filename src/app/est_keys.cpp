// screen: the keys of EST mode.
#include "editor/est_mode.h"
#include "raster/keys.h"

namespace kq {

namespace {

// clang-format off
constexpr Binding<EditorAction> own[] = {
    {key::escape, [] { return leave_editor; }, "back to the editor"},
    {key::f2,     choose_master_key,           "the species becomes the master sequence"},
    {'R',         paste_right_key,             "paste into the master, from the cursor on"},
    {'L',         paste_left_key,              "paste into the master, up to the cursor"},
    {'P',         paste_character_key,         "paste the character under the cursor into the master"},
    {key::f12,    destroy_in_est_key,          "delete the species from the alignment, without questions"},
};

constexpr int shared[] = {
    key::backspace, key::tab, key::shift_f2, key::del, ' ', '*', key::f11, key::shift_f3, key::shift_f4,
    key::insert, key::shift_f7, key::shift_f8, key::shift_insert, key::f4, key::f5, key::f8, key::f9,
    '+', '-', key::alt_keypad_plus, key::alt_keypad_minus, ',', '/', ';', '.', '?',
    'A', 'B', 'C', 'D', 'E', 'F', 'M', 'S', 'T', 'U', 'X', 'Z',
    key::home, key::end, key::left, key::right, key::ctrl_left, key::ctrl_right,
    key::up, key::down, key::pgup, key::pgdn, key::ctrl_up, key::ctrl_down,
};
// clang-format on
static_assert(unique_keys<EditorAction>(own), "a key is bound twice");

} // namespace

constinit const ModeKeys est_keys{{"EST mode", own, true}, shared};

} // namespace kq
