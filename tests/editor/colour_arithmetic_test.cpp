#include "editor/colour_arithmetic.h"

#include <gtest/gtest.h>

using kq::ScaleColour;

TEST(ColourArithmetic, BackgroundsTurnGreyerWithTheLevel)
{
    constexpr ScaleColour blue = {0, 0, 170}, red = {170, 0, 0}, brown = {170, 85, 0}, grey = {170, 170, 170};
    const struct {
        int colour_class, level;
        ScaleColour basic, expected;
    } cases[] = {
        {1, 0, blue, {0, 0, 170}},
        {1, 1, blue, {2, 2, 138}}, // 20 percent: 0.0820 x 0.2 x 170 = 2.8 on
                                   // each, 0.8 x 170 more on blue
        {4, 9, red, {71, 44, 44}}, // 84 percent: 0.3086 x 0.84 x 170 = 44.07, 0.16 x 170 = 27.2 more on red
        {6, 2, brown, {146, 91, 37}},  // 36 percent: grey 37.53, 0.64 x 170 = 108.8, 0.64 x 85 = 54.4
        {6, 3, brown, {146, 91, 37}},  // levels go in pairs
        {7, 0, grey, {176, 176, 176}}, // light grey has figures of its own
        {7, 1, grey, {128, 128, 128}},
        {7, 4, grey, {88, 88, 88}},
        {7, 9, grey, {48, 48, 48}},
        {0, 5, {0, 0, 0}, {0, 0, 0}},
    };
    for (const auto& c : cases) {
        const ScaleColour colour = kq::scale_background(c.colour_class, c.level, c.basic);
        EXPECT_EQ(colour, c.expected)
            << c.colour_class << "." << c.level << ": " << colour.r << ' ' << colour.g << ' ' << colour.b;
    }
}

TEST(ColourArithmetic, BrightnessMovesTowardsWhite)
{
    kq::ColourMatrix matrix;
    kq::build_brightness_matrix(matrix, 50);
    int r = 100, g = 0, b = 200, a = 1;
    kq::build_rgb_color(r, g, b, a, matrix);
    EXPECT_EQ((ScaleColour{r, g, b}), (ScaleColour{177, 127, 227})); // half of each, and 127.5
    EXPECT_EQ(a, 1);
}
