// screen: the palette entries of the alignment display.
#pragma once

#include <array>

namespace kq {

inline constexpr int colour_classes = 8;       // the eight basic text colours, black to light grey
inline constexpr int conservation_levels = 10; // 0 = fully conserved, the most saturated

// Palette index of background and text of each class and level, at class x 10 + level. Written by
// build_color_scale.
extern std::array<int, colour_classes * conservation_levels> bg_scale;
extern std::array<int, colour_classes * conservation_levels> fg_scale;

// Fills both from the basic colours; called once, after the window is opened.
void build_color_scale();

} // namespace kq
