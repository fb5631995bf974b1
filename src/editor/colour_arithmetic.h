// kernel: the colours of the alignment display, computed from the basic colours.
#pragma once

#include <array>

namespace kq {

// Rows red, green, blue, alpha; columns red, green, blue, alpha, offset. Multiplies (r, g, b, a, 1).
using ColourMatrix = std::array<std::array<float, 5>, 4>;

// Desaturates by `percent` (0 = unchanged, 100 = grey): each channel moves towards the luminance
// 0.3086 r + 0.6094 g + 0.0820 b. Single precision.
void build_saturation_matrix(ColourMatrix& matrix, int percent);
// Lightens by `percent` (0 = unchanged, 100 = white). Deliberate: the colour scale does not use it.
void build_brightness_matrix(ColourMatrix& matrix, int percent);
// Multiplies in extended precision and truncates each result toward zero into its channel.
void build_rgb_color(int& r, int& g, int& b, int& a, const ColourMatrix& matrix);

struct ScaleColour {
    int r = 0, g = 0, b = 0;
    bool operator==(const ScaleColour&) const = default;
};

// The two colours of a residue of colour class 0..7 at conservation level 0..9, from the class's basic
// colour. A higher level has a greyer background; levels go in pairs, but for level 0.
ScaleColour scale_background(int colour_class, int level, ScaleColour basic);
int scale_text_grey(int colour_class, int level);

} // namespace kq
