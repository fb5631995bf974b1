// model: the names of keys, for scripts of keys and for the key reference.
#include "raster/key_names.h"

#include "raster/keys.h"

#include <algorithm>

namespace kq {

namespace {

struct NamedKey {
    std::string_view name;
    int code;
};

// The first name of a code is the one that key_name gives.
// clang-format off
constexpr NamedKey named_keys[] = {
    {"Enter", key::enter}, {"Escape", key::escape}, {"Esc", key::escape},
    {"Tab", key::tab}, {"S-Tab", key::shift_tab},
    {"BackSpace", key::backspace}, {"A-BackSpace", key::alt_backspace},
    {"Delete", key::del}, {"Del", key::del},
    {"Insert", key::insert}, {"Ins", key::insert},
    {"S-Insert", key::shift_insert}, {"S-Ins", key::shift_insert},
    {"C-Insert", key::ctrl_insert}, {"C-Ins", key::ctrl_insert},
    {"Home", key::home}, {"End", key::end}, {"C-End", key::ctrl_end},
    {"PgUp", key::pgup}, {"PgDn", key::pgdn},
    {"Up", key::up}, {"Down", key::down}, {"Left", key::left}, {"Right", key::right},
    {"C-Up", key::ctrl_up}, {"C-Down", key::ctrl_down},
    {"C-Left", key::ctrl_left}, {"C-Right", key::ctrl_right},
    {"Space", ' '},
    {"A-KPMinus", key::alt_keypad_minus}, {"A-KPPlus", key::alt_keypad_plus}, {"A-<", key::alt_less},
    {"F1", key::f1}, {"F2", key::f2}, {"F3", key::f3}, {"F4", key::f4}, {"F5", key::f5}, {"F6", key::f6},
    {"F7", key::f7}, {"F8", key::f8}, {"F9", key::f9}, {"F10", key::f10}, {"F11", key::f11}, {"F12", key::f12},
    {"S-F1", key::shift_f1}, {"S-F2", key::shift_f2}, {"S-F3", key::shift_f3}, {"S-F4", key::shift_f4},
    {"S-F5", key::shift_f5}, {"S-F6", key::shift_f6}, {"S-F7", key::shift_f7}, {"S-F8", key::shift_f8},
    {"S-F9", key::shift_f9}, {"S-F10", key::shift_f10}, {"S-F11", key::shift_f11}, {"S-F12", key::shift_f12},
};
// clang-format on

constexpr char upper(char c)
{
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

bool same_name(std::string_view a, std::string_view b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char x, char y) { return upper(x) == upper(y); });
}

} // namespace

int key_code(std::string_view name)
{
    if (name.size() == 1) return static_cast<unsigned char>(name[0]);
    for (const NamedKey& named : named_keys)
        if (same_name(named.name, name)) return named.code;
    if (name.size() == 3 && same_name(name.substr(0, 2), "C-")) {
        const char letter = upper(name[2]);
        if (letter >= 'A' && letter <= 'Z') return letter - 'A' + 1;
    }
    return 0;
}

std::string key_name(int code)
{
    for (const NamedKey& named : named_keys)
        if (named.code == code) return std::string(named.name);
    if (code > ' ' && code <= '~') return {static_cast<char>(code)};
    if (code >= 1 && code <= 26) return {'C', '-', static_cast<char>('A' + code - 1)};
    return {};
}

} // namespace kq
