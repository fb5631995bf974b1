// model: the keys of the list of groups.
#include "raster/keys.h"
#include "taxonomy/group_list.h"

namespace kq {

namespace {

constexpr std::string_view colour_note = "give the group the colour of this key";

// clang-format off
constexpr Binding<GroupListAction> choice_rows[] = {
    {key::up,      &GroupListScreen::up,        "one group up"},
    {key::down,    &GroupListScreen::down,      "one group down"},
    {key::left,    &GroupListScreen::left,      "one column left"},
    {key::right,   &GroupListScreen::right,     "one column right"},
    {key::pgup,    &GroupListScreen::page_up,   "ten groups up"},
    {key::pgdn,    &GroupListScreen::page_down, "ten groups down"},
    {key::home,    &GroupListScreen::home,      "first group"},
    {key::end,     &GroupListScreen::end,       "last group"},
    {key::enter,   &GroupListScreen::choose,    "choose the group"},
    {key::f2,      &GroupListScreen::full_list, "list all groups again"},
    {key::escape,  &GroupListScreen::leave,     "return without choosing"},
    {'A',          &GroupListScreen::sub_list,  "list only the groups that begin with this letter", 'Z'},
};

constexpr Binding<GroupListAction> colour_rows[] = {
    {key::up,      &GroupListScreen::up,            "one group up"},
    {key::down,    &GroupListScreen::down,          "one group down"},
    {key::left,    &GroupListScreen::left,          "one column left"},
    {key::right,   &GroupListScreen::right,         "one column right"},
    {key::pgup,    &GroupListScreen::page_up,       "ten groups up"},
    {key::pgdn,    &GroupListScreen::page_down,     "ten groups down"},
    {key::home,    &GroupListScreen::home,          "first group"},
    {key::end,     &GroupListScreen::end,           "last group"},
    {key::f2,      &GroupListScreen::other_colours, "choose another file of group colours"},
    {key::f5,      &GroupListScreen::save_colours,  "write the colour file and return"},
    {key::escape,  &GroupListScreen::leave,         "return without writing; the colours stay until the program ends"},
    {'0',          &GroupListScreen::recolour,      colour_note, '9'},
    {'/',          &GroupListScreen::recolour,      colour_note},
    {'*',          &GroupListScreen::recolour,      colour_note},
    {'-',          &GroupListScreen::recolour,      colour_note},
    {'+',          &GroupListScreen::recolour,      colour_note},
    {'.',          &GroupListScreen::recolour,      colour_note},
};
// clang-format on
static_assert(unique_keys<GroupListAction>(choice_rows), "a key is bound twice");
static_assert(unique_keys<GroupListAction>(colour_rows), "a key is bound twice");

} // namespace

constinit const KeyTable<GroupListAction> group_choice_keys{"Choosing a group", choice_rows, true};
constinit const KeyTable<GroupListAction> group_colour_keys{"Colours of the groups", colour_rows};

} // namespace kq
