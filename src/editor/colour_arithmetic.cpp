// kernel: the colours of the alignment display, computed from the basic colours.
#include "editor/colour_arithmetic.h"

namespace kq {

namespace {

constexpr int class_black = 0, class_green = 2, class_cyan = 3, class_light_grey = 7;

// From level 1 on the colours change by `step` for every two levels, starting from `base`.
constexpr int paired(int level, int at_zero, int base, int step)
{
    return level == 0 ? at_zero : base + step * (level / 2);
}

} // namespace

void build_saturation_matrix(ColourMatrix& matrix, int percent)
{
    constexpr std::array<float, 3> luminance = {0.3086F, 0.6094F, 0.0820F};
    const float kept = 1.0F - static_cast<float>(percent) * 0.01F;
    const float grey = 1.0F - kept;
    matrix = {};
    for (std::size_t row = 0; row < 3; row++) {
        for (std::size_t column = 0; column < 3; column++)
            matrix[row][column] = luminance[column] * grey;
        matrix[row][row] += kept;
    }
    matrix[3][3] = 1.0F;
}

void build_brightness_matrix(ColourMatrix& matrix, int percent)
{
    matrix = {};
    for (std::size_t row = 0; row < 3; row++) {
        matrix[row][row] = 1.0F - static_cast<float>(percent) * 0.01F;
        matrix[row][4] = static_cast<float>(percent) * 2.55F;
    }
    matrix[3][3] = 1.0F;
}

void build_rgb_color(int& r, int& g, int& b, int& a, const ColourMatrix& matrix)
{
    const std::array<int, 4> channels = {r, g, b, a};
    std::array<int, 4> result{};
    for (std::size_t row = 0; row < 4; row++) {
        long double sum = matrix[row][4];
        for (std::size_t column = 0; column < 4; column++)
            sum += static_cast<long double>(matrix[row][column]) * channels[column];
        result[row] = static_cast<int>(sum);
    }
    r = result[0];
    g = result[1];
    b = result[2];
    a = result[3];
}

ScaleColour scale_background(int colour_class, int level, ScaleColour basic)
{
    if (colour_class == class_black) return {};
    if (colour_class == class_light_grey) {
        const int grey = paired(level, 176, 128, -20);
        return {grey, grey, grey};
    }
    ColourMatrix matrix;
    build_saturation_matrix(matrix, paired(level, 0, 20, 16));
    int alpha = 1;
    build_rgb_color(basic.r, basic.g, basic.b, alpha, matrix);
    return basic;
}

int scale_text_grey(int colour_class, int level)
{
    switch (colour_class) {
    case class_black:
        return paired(level, 255, 176, -32);
    case class_green:
    case class_cyan:
    case class_light_grey:
        return 0;
    default:
        return level == 0 ? 255 : 176;
    }
}

} // namespace kq
