// model: the keyboard: from X keysyms and modifiers to key codes.
#include "raster/keysyms.h"

#include "raster/keys.h"

#define XK_MISCELLANY
#define XK_XKB_KEYS
#define XK_LATIN1
#include <X11/keysymdef.h>

namespace kq {

namespace {

enum Modifiers : unsigned { none = 0, shift = 1, control = 2, alt = 4 };

struct Row {
    unsigned long keysym;
    unsigned modifiers;
    int code;
};

// Strokes that are not simply the character they type.
// clang-format off
constexpr Row keyboard[] = {
    {XK_Home,  none, key::home},  {XK_Up,   none, key::up},   {XK_Prior, none, key::pgup},
    {XK_Left,  none, key::left},  {XK_Right, none, key::right},
    {XK_End,   none, key::end},   {XK_Down, none, key::down}, {XK_Next,  none, key::pgdn},
    {XK_Insert, none, key::insert}, {XK_Insert, shift, key::shift_insert}, {XK_Insert, control, key::ctrl_insert},
    {XK_Left,  control, key::ctrl_left}, {XK_Right, control, key::ctrl_right}, {XK_End, control, key::ctrl_end},
    {XK_Up,    control, key::ctrl_up},   {XK_Down,  control, key::ctrl_down},
    {XK_Tab,   shift, key::shift_tab},   {XK_BackSpace, alt, key::alt_backspace},
    {XK_KP_Subtract, alt, key::alt_keypad_minus}, {XK_KP_Add, alt, key::alt_keypad_plus}, {XK_less, alt, key::alt_less},
    {XK_F1, none, key::f1}, {XK_F2, none, key::f2}, {XK_F3, none, key::f3}, {XK_F4,  none, key::f4},  {XK_F5,  none, key::f5},  {XK_F6,  none, key::f6},
    {XK_F7, none, key::f7}, {XK_F8, none, key::f8}, {XK_F9, none, key::f9}, {XK_F10, none, key::f10}, {XK_F11, none, key::f11}, {XK_F12, none, key::f12},
    {XK_F1, shift, key::shift_f1}, {XK_F2,  shift, key::shift_f2},  {XK_F3,  shift, key::shift_f3},  {XK_F4,  shift, key::shift_f4},
    {XK_F5, shift, key::shift_f5}, {XK_F6,  shift, key::shift_f6},  {XK_F7,  shift, key::shift_f7},  {XK_F8,  shift, key::shift_f8},
    {XK_F9, shift, key::shift_f9}, {XK_F10, shift, key::shift_f10}, {XK_F11, shift, key::shift_f11}, {XK_F12, shift, key::shift_f12},
};

// The keypad when it moves instead of typing digits. With NumLock on that takes Shift, which is used up by it.
constexpr struct { unsigned long keypad, keysym; } keypad_keys[] = {
    {XK_KP_Home, XK_Home}, {XK_KP_Up, XK_Up}, {XK_KP_Prior, XK_Prior}, {XK_KP_Left, XK_Left},
    {XK_KP_Right, XK_Right}, {XK_KP_End, XK_End}, {XK_KP_Down, XK_Down}, {XK_KP_Next, XK_Next},
    {XK_KP_Insert, XK_Insert}, {XK_KP_Delete, XK_Delete},
};
// clang-format on

bool types_itself(unsigned long keysym)
{
    const bool function_key = keysym >= 0xFD00 && keysym <= 0xFFFF;
    if (!function_key) return true;
    switch (keysym) {
    case XK_BackSpace:
    case XK_Tab:
    case XK_Linefeed:
    case XK_Return:
    case XK_Escape:
    case XK_Delete:
        return true;
    default:
        return keysym >= XK_KP_Space && keysym <= XK_KP_9;
    }
}

} // namespace

int key_code_of(const KeyStroke& stroke)
{
    unsigned long keysym = stroke.keysym;
    bool shifted = stroke.shift;
    for (const auto& [keypad, plain] : keypad_keys)
        if (keysym == keypad) {
            keysym = plain;
            shifted = shifted && !stroke.num_lock;
        }
    if (keysym == XK_ISO_Left_Tab) { // what most keyboard mappings make of Shift and Tab
        keysym = XK_Tab;
        shifted = true;
    }
    if (keysym <= 0xFF) shifted = false; // Shift is already in the character

    const unsigned modifiers =
        (shifted ? shift : none) | (stroke.control ? control : none) | (stroke.alt ? alt : none);
    for (const Row& row : keyboard)
        if (row.keysym == keysym && row.modifiers == modifiers) return row.code;
    if (stroke.alt) return 0;
    if (keysym == XK_Delete) return key::del;
    return types_itself(keysym) ? stroke.character : 0;
}

} // namespace kq
