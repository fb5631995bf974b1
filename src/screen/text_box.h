// screen: a text in a box at the top of the screen, until a key is pressed.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace kq {

// The width that a row of the box has.
int text_box_width();
// How many rows fit with this legend.
int text_box_height(std::string_view legend);

// Shows the rows, each cut at the width, in a box from line 1 on, the legend two lines below them; returns
// the key that closed it. When there are more rows than fit, Up, Down, PgUp, PgDn, Home and End scroll
// instead of closing.
int show_text_box(std::span<const std::string> rows, std::string_view legend);

} // namespace kq
