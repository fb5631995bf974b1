#include "raster/grx.h"
#include "screen/directories.h"
#include "screen/window.h"
#include "support/screen_test.h"

#include <array>

namespace kq {
namespace {

using test::Ending;
using Numbers = std::array<int, 5>; // as in pyx.sys: font type, height, width, lines, columns

constexpr Numbers defaults = {0, 14, 8, 34, 80};

class Window : public test::ScreenTest {
protected:
    static Numbers geometry() { return {_type_font, _gr_size_x, _gr_size_y, _nb_line, _nb_col}; }
    test::Played dialog(std::string_view keys)
    {
        return play(keys, [] { choice_option_window(program_title); });
    }
};

TEST_F(Window, ReadsItsGeometryOrTakesTheDefaults)
{
    const struct {
        const char* text;
        Numbers expected;
    } cases[] = {
        {"1\n20\n12\n50\n120\n", {1, 20, 12, 50, 120}},
        {"0\n8\n6\n20\n20\n", {0, 8, 6, 20, 20}},
        {"2\r\n16\r\n8\r\n200\r\n200", {2, 16, 8, 200, 200}},
        {"", defaults},
        {"1\n20\n12\n50\n", defaults},
        {"1\n20\n12\n50\nx\n", defaults},
        {"3\n14\n8\n34\n80\n", defaults},
        {"-1\n14\n8\n34\n80\n", defaults},
        {"0\n0\n8\n34\n80\n", defaults},
        {"0\n14\n999\n34\n80\n", defaults},
        {"0\n14\n8\n19\n80\n", defaults},
        {"0\n14\n8\n201\n80\n", defaults},
        {"0\n14\n8\n34\n19\n", defaults},
        {"0\n14\n8\n34\n99999999999999999999\n", defaults},
    };
    for (const auto& c : cases) {
        write_file("zolt/data/pyx.sys", c.text);
        read_config_pyx();
        EXPECT_EQ(geometry(), c.expected) << c.text;
    }
    dir_DATA = path("nowhere/");
    read_config_pyx();
    EXPECT_EQ(geometry(), defaults);
}

std::string pixels_of_cell(int left, int top)
{
    std::string pixels;
    for (int y = 0; y < _gr_size_x; y++)
        for (int x = 0; x < _gr_size_y; x++)
            pixels += GrPixel(left + x, top + y) == color_c ? '#' : '.';
    return pixels;
}

// Which pixels a character lights.
std::string glyph(char character)
{
    _settextposition(1, 1);
    _outchar(' ');
    _outchar(character);
    return pixels_of_cell(0, 0);
}

TEST_F(Window, TakesTheBuiltInFontOfTheCellsHeight)
{
    write_file("zoltexe/cour20.fnt", "no font at all");
    const struct {
        int width, height, type;
        const GrFont* font;
        const char* why;
    } cases[] = {
        {8, 14, 0, &GrFont_PC8x14, "by height"},
        {8, 16, 0, &GrFont_PC8x16, "by height"},
        {6, 8, 0, &GrFont_PC6x8, "by height and width"},
        {8, 12, 0, &GrFont_PC6x8, "another height keeps the font there was"},
        {8, 15, 2, &GrFont_PC8x14, "no such file: what fits best"},
        {4, 5, 2, &GrFont_PC6x8, "no such file, nothing fits: the smallest"},
        {12, 20, 1, &GrFont_PC8x16, "no font in the file: what fits best"},
    };
    for (const auto& c : cases) {
        open({.cell_width = c.width, .cell_height = c.height, .font_type = c.type});
        const GrTextOption option{c.font, static_cast<GrColor>(color_c), 0};
        GrDrawChar('R', 100, 100, _gr_size_y, _gr_size_x, option);
        EXPECT_EQ(glyph('R'), pixels_of_cell(100, 100)) << c.width << "x" << c.height << ": " << c.why;
    }
}

TEST_F(Window, DialogShowsItsChoices)
{
    dialog("");
    EXPECT_SCREEN("window_dialog");
    dialog("Enter");
    EXPECT_EQ(line(15).substr(14), "| Number of lines (20-200) =      34" + std::string(14, ' ') + "|");
    dialog("Down*2 Enter");
    EXPECT_TRUE(shows("PCdefault"));
    EXPECT_EQ(line_of("courrier"), 7);
}

TEST_F(Window, DialogChangesTheGeometry)
{
    const struct {
        const char* keys;
        Numbers expected;
    } cases[] = {
        {"Enter BackSpace*2 \"50\" Enter", {0, 14, 8, 50, 80}},
        {"Enter BackSpace*2 \"19\" Enter Escape Escape", defaults}, // out of bounds
        {"Down Enter BackSpace*2 \"95\" Enter", {0, 14, 8, 34, 90}},
        {"Down Enter BackSpace*2 \"200\" Enter", {0, 14, 8, 34, 200}},
        {"Down*3 Enter Down Enter", {0, 16, 8, 34, 80}},
        {"Down*3 Enter Down*2 Enter", {0, 8, 6, 34, 80}},
        {"Down*3 Enter Down Enter Down*2 Enter Down Enter", {1, 14, 8, 34, 80}}, // another font: 8x14 again
        {"Down*2 Enter Down*2 Enter Down*3 Enter Down*3 Enter", {2, 19, 8, 34, 80}},
    };
    for (const auto& c : cases) {
        open({});
        dialog(c.keys);
        EXPECT_EQ(geometry(), c.expected) << c.keys;
        EXPECT_EQ(GrSizeX(), _nb_col * _gr_size_y) << c.keys;
        EXPECT_FALSE(has_file("zolt/data/pyx.sys"));
    }
}

TEST_F(Window, DialogIsLeftWithOrWithoutTheChanges)
{
    auto played = dialog("Enter BackSpace*2 \"50\" Enter Down Enter BackSpace*2 \"120\" Enter Escape");
    EXPECT_EQ(played.ending, Ending::returned);
    EXPECT_EQ(geometry(), defaults);
    EXPECT_EQ(GrSizeY(), 34 * 14);
    EXPECT_FALSE(has_file("zolt/data/pyx.sys"));

    played = dialog("Enter BackSpace*2 \"50\" Enter Up Enter");
    EXPECT_EQ(played.ending, Ending::returned);
    EXPECT_EQ(read_file("zolt/data/pyx.sys"), "0\n14\n8\n50\n80\n");

    dir_DATA = path("nowhere/");
    EXPECT_EQ(play("Q", [] { save_config_pyx(); }).ending, Ending::returned) << "a warning";
}

TEST_F(Window, SizeMenusReachEverySize)
{
    for (const auto& [type, sizes] : {std::pair{0, 4}, {1, 6}, {2, 36}})
        for (int i = 0; i < sizes; i++) {
            open({.lines = 20, .columns = 20, .cell_width = 30, .cell_height = 60, .font_type = type});
            const std::string keys = "Down*" + std::to_string(sizes + i) + " Enter"; // once around
            EXPECT_EQ(play(keys, choice_size_font).ending, Ending::returned);
            EXPECT_LT(_gr_size_x, 27);
            open_window(program_title);
            EXPECT_EQ(GrSizeX(), 20 * _gr_size_y);
            EXPECT_NE(glyph('A'), glyph('B')) << _gr_size_y << "x" << _gr_size_x;
        }
    EXPECT_EQ(geometry(), (Numbers{2, 25, 16, 20, 20})) << "the last of the last menu";
    EXPECT_EQ(play("Down Escape", choice_size_font).ending, Ending::returned);
    EXPECT_EQ(geometry(), (Numbers{2, 25, 16, 20, 20}));
}

TEST_F(Window, SmallestDialogWorks)
{
    open({.lines = 20, .columns = 20});
    dialog("Down Enter");
    EXPECT_SCREEN("tiny_window_dialog");
    dialog("Down Enter BackSpace*2 \"160\" Enter");
    EXPECT_EQ(_nb_col, 160);
}

} // namespace
} // namespace kq
