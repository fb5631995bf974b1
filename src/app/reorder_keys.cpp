// model: the keys of the reorder screen.
#include "raster/keys.h"
#include "taxonomy/reorder_screen.h"

namespace kq {

namespace {

// clang-format off
constexpr Binding<ReorderAction> rows[] = {
    {key::up,        &ReorderScreen::up,               "one entry up"},
    {key::down,      &ReorderScreen::down,             "one entry down"},
    {key::left,      &ReorderScreen::left,             "one column left"},
    {key::right,     &ReorderScreen::right,            "one column right"},
    {key::pgup,      &ReorderScreen::page_up,          "ten entries up"},
    {key::pgdn,      &ReorderScreen::page_down,        "ten entries down"},
    {'0',            &ReorderScreen::digit,            "append a digit to the entry's number; the number 0 removes the species"},
    {'1',            &ReorderScreen::digit,            "append a digit", '9'},
    {key::backspace, &ReorderScreen::erase_digit,      "erase the last digit"},
    {'?',            &ReorderScreen::information,      "what is known about the species, and its group"},
    {key::f1,        &ReorderScreen::help,             "help on this screen"},
    {key::f2,        &ReorderScreen::apply,            "reorder and go on"},
    {key::f3,        &ReorderScreen::apply_and_return, "reorder and return to the tree"},
    {key::escape,    &ReorderScreen::leave,            "return without reordering"},
};
// clang-format on
static_assert(unique_keys<ReorderAction>(rows), "a key is bound twice");

} // namespace

constinit const KeyTable<ReorderAction> reorder_keys{"Reordering the selected species", rows};

} // namespace kq
