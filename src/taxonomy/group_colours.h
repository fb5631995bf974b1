// screen: text and background colours of a group's name.
#pragma once

namespace kq {

// Text colour = the group's colour, or light grey when it has none.
void select_color_groupe(int group);
// Background for a group's name: off -> black; on -> dark grey for the bright colours, white for the dark
// ones.
void select_bk_color_groupe(int group, bool on);

} // namespace kq
