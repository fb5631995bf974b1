// screen: text and background colours of a group's name.
#include "taxonomy/group_colours.h"

#include "screen/text.h"
#include "taxonomy/frame.h"

namespace kq {

namespace {

// The group's palette index, -1 when it has none.
int colour_of(int group)
{
    return group < 0 || group >= nb_groupe ? -1 : color_groupe[static_cast<std::size_t>(group)];
}

} // namespace

void select_color_groupe(int group)
{
    const int colour = colour_of(group);
    _settextcolor(colour == -1 ? color::light_grey : colour);
}

void select_bk_color_groupe(int group, bool on)
{
    const int colour = colour_of(group);
    const bool dark = colour >= color::black && colour <= color::light_blue;
    _setbgcolor(!on ? color::black : dark ? color::white : color::dark_grey);
}

} // namespace kq
