// screen: the keys of the file chooser.
#include "core/chooser.h"
#include "raster/keys.h"
#include "screen/directories.h"
#include "taxonomy/frame_files.h"
#include "taxonomy/frame_screen.h"
#include "taxonomy/group_file_screen.h"

namespace kq {

namespace {

// clang-format off
constexpr Binding<ChooserAction> rows[] = {
    {key::up,        [](Chooser& c) { return c.move(-1); },            "previous file"},
    {key::down,      [](Chooser& c) { return c.move(1); },             "next file"},
    {key::pgup,      [](Chooser& c) { return c.move(-5); },            "five files back"},
    {key::pgdn,      [](Chooser& c) { return c.move(5); },             "five files forward"},
    {key::left,      [](Chooser& c) { return c.column_left(); },       "one column to the left"},
    {key::right,     [](Chooser& c) { return c.column_right(); },      "one column to the right"},
    {key::f7,        [](Chooser& c) { return c.turn_page(-1); },       "previous page"},
    {key::f8,        [](Chooser& c) { return c.turn_page(1); },        "next page"},
    {key::enter,     [](Chooser& c) { return c.open_file(); },         "open the file"},
    {key::escape,    [](Chooser& c) { return c.ask_to_exit(); },       "leave the program"},
    {key::f1,        [](Chooser& c) { return c.help(); },              "help"},
    {key::f2,        [](Chooser& c) { return c.other_program(); },     "go to one of the companion programs"},
    {key::f3,        [](Chooser&) { choice_frame(); return ChooserRedraw::screen; },    "choose the systematic frame"},
    {key::f4,        [](Chooser&) { choice_file_NOM(); return ChooserRedraw::screen; }, "choose the file of groups"},
    {key::f5,        [](Chooser&) { choice_file_COL(); return ChooserRedraw::screen; }, "choose the file of colours"},
    {key::shift_f10, [](Chooser& c) { return c.choose_geometry(); },   "geometry of the window"},
};
// clang-format on
static_assert(unique_keys<ChooserAction>(rows), "a key is bound twice");

} // namespace

const KeyTable<ChooserAction> chooser_keys = {"File chooser", rows};

TaxonomyFiles taxonomy_files()
{
    const bool known = no_frame >= 0 && no_frame < static_cast<int>(file_frame.size());
    return {known ? dir_ZOLTEXE + file_frame[static_cast<std::size_t>(no_frame)] + ".fra" : "", file_NOM,
            file_COL};
}

} // namespace kq
