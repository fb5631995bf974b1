// screen: the colours of groups: of their names, and the keys that give them.
#include "taxonomy/group_colours.h"

#include "screen/text.h"
#include "taxonomy/frame.h"

#include <string_view>

namespace kq {

namespace {

// The first key stands for colour 1.
constexpr std::string_view colour_keys = "0123456789/*-+.";

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

void affect_color_groupe(int key, int group)
{
    const std::size_t place = colour_keys.find(static_cast<char>(key & 0xff));
    if (place != std::string_view::npos) color_groupe[static_cast<std::size_t>(group)] = egacolors[place + 1];
}

void affich_bandeau_color_groupe(int line, ColourLegend legend)
{
    constexpr int full_width = 80, label_column = 3, first_key_column = 13, text_column = 46;
    const bool wide = _nb_col >= full_width; // else without the label, the keys side by side
    const int step = wide ? 2 : 1, keys_column = wide ? first_key_column : label_column;
    if (wide) outtext_inside(line, label_column, color::light_cyan, "Color:");
    for (int i = 0; i < static_cast<int>(colour_keys.size()); i++)
        outtext_inside(line, keys_column + i * step, i + 1,
                       colour_keys.substr(static_cast<std::size_t>(i), 1));
    const int after_keys = keys_column + static_cast<int>(colour_keys.size()) + 1;
    outtext_inside(line, wide ? text_column : after_keys, color::light_cyan,
                   legend == ColourLegend::list ? "F2:Load  F5:Save  ESCAPE:Cancel"
                                                : "F5:Save  ESCAPE:Cancel");
}

} // namespace kq
