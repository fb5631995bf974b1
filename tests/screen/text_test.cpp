#include "raster/grx.h"
#include "support/screen_test.h"

namespace kq {
namespace {

class TextScreen : public test::ScreenTest {
protected:
    // The pixels of a cell's centre row carry a mark that any drawing of the cell wipes out.
    static void mark_pixels(int line, int column)
    {
        for (int x = 0; x < _gr_size_y; x++)
            GrPlot((column - 1) * _gr_size_y + x, (line - 1) * _gr_size_x + _gr_size_x / 2, mark);
    }
    static bool still_marked(int line, int column)
    {
        for (int x = 0; x < _gr_size_y; x++)
            if (GrPixel((column - 1) * _gr_size_y + x, (line - 1) * _gr_size_x + _gr_size_x / 2) != mark)
                return false;
        return true;
    }
    static constexpr GrColor mark = 9;
};

TEST_F(TextScreen, WritesAtTheWindowsPositionAndIsCutOnlyByTheScreen)
{
    _settextwindow(3, 10, 5, 12);
    _settextposition(2, 3);
    _settextcolor(color::red);
    _setbgcolor(color::cyan);
    _outtext("past the window");
    EXPECT_EQ(line(4), "           past the window");
    EXPECT_EQ(color_at(4, 12), color::red);
    EXPECT_EQ(background_at(4, 25), color::cyan);
    int l = 0, c = 0;
    _gettextposition(&l, &c);
    EXPECT_EQ(l, 2) << "the cursor stays";
    EXPECT_EQ(c, 3);

    _settextwindow(1, 1, 34, 80);
    for (const auto& [row, column] : {std::pair{0, 5}, {35, 5}, {7, -200}, {7, 81}, {8, 79}, {9, -1}}) {
        _settextposition(row, column);
        _outtext("abcd");
    }
    EXPECT_EQ(line(7), "");
    EXPECT_EQ(screen_line(8).substr(77), " ab");
    EXPECT_EQ(line(9), "cd") << "columns -1 and 0 are off the screen";
}

TEST_F(TextScreen, DrawsOnlyCellsThatChange)
{
    _settextposition(2, 1);
    _outtext("ABC");
    for (int column = 1; column <= 3; column++)
        mark_pixels(2, column);
    _outtext("AxC");
    EXPECT_TRUE(still_marked(2, 1));
    EXPECT_FALSE(still_marked(2, 2));
    EXPECT_TRUE(still_marked(2, 3));
    _settextcolor(color::yellow);
    _outtext("A");
    EXPECT_FALSE(still_marked(2, 1)) << "another colour is another cell";

    mark_pixels(5, 5);
    _clearscreen(0);
    EXPECT_TRUE(still_marked(5, 5)) << "a blank cell is not blanked again";
    EXPECT_FALSE(still_marked(2, 3));
    EXPECT_EQ(line(2), "");
}

TEST_F(TextScreen, DrawsACellAgainThatAShapeCrosses)
{
    _settextposition(1, 1);
    _outtext("AB");
    _settextcolor(color::green);
    _moveto(0, 7);
    _lineto(7, 7); // through the first cell
    _filled_circle(60, 21, 3, color::red);
    mark_pixels(1, 1);
    mark_pixels(1, 2);
    _settextcolor(color::light_grey);
    _outtext("AB");
    EXPECT_FALSE(still_marked(1, 1));
    EXPECT_TRUE(still_marked(1, 2));
    EXPECT_EQ(screen_cell(2, 8).shape, shape_disc);
    EXPECT_EQ(color_at(2, 8), color::red);
    EXPECT_EQ(screen_cell(2, 7).shape, 0) << "the disc's pixels 57 to 63 lie in one cell";
    _clearscreen(0);
    EXPECT_EQ(GrPixel(60, 21), color::black);
}

TEST_F(TextScreen, AnErasedDiscLeavesTheTextBelowIt)
{
    const auto pixels = [] {
        std::string all;
        for (int y = 0; y < 3 * _gr_size_x; y++)
            for (int x = 0; x < 4 * _gr_size_y; x++)
                all += static_cast<char>(GrPixel(x, y));
        return all;
    };
    _settextposition(2, 1);
    _outtext("MMMM");
    const std::string text = pixels(), dump = screen_dump();
    _filled_circle(15, 16, 4, color::light_green); // over two characters and two blanks
    EXPECT_NE(pixels(), text);
    _filled_circle(15, 16, 4, color::black);
    EXPECT_EQ(pixels(), text);
    EXPECT_EQ(screen_dump(), dump);
}

TEST_F(TextScreen, FramesABoxThroughTheCentresOfItsBorderCells)
{
    window_hp(3, 10, 6, 20, color::light_green);
    // Lines 3 and 6 of 14 pixels, columns 10 and 20 of 8.
    EXPECT_EQ(GrPixel(10 * 8 - 4, 3 * 14 - 7), color::light_green);
    EXPECT_EQ(GrPixel(20 * 8 - 4, 6 * 14 - 7), color::light_green);
    EXPECT_EQ(GrPixel(10 * 8 - 5, 3 * 14 - 7), color::black);
    EXPECT_EQ(GrPixel(10 * 8 - 3, 3 * 14 - 6), color::black);
}

TEST_F(TextScreen, MovesAndCutsABoxThatDoesNotFit)
{
    const struct {
        Box given, fitted;
    } cases[] = {
        {{1, 1, 34, 80}, {1, 1, 34, 80}},   {{32, 10, 36, 20}, {30, 10, 34, 20}},
        {{3, 70, 5, 90}, {3, 60, 5, 80}},   {{0, -3, 4, 5}, {1, 1, 5, 9}},
        {{5, 10, 60, 200}, {1, 1, 34, 80}}, {{90, 90, 95, 95}, {29, 75, 34, 80}},
        {{-9, -9, 99, 99}, {1, 1, 34, 80}},
    };
    for (const auto& [given, fitted] : cases) {
        const Box box = fit_box(given);
        EXPECT_EQ((std::array{box.l1, box.c1, box.l2, box.c2}),
                  (std::array{fitted.l1, fitted.c1, fitted.l2, fitted.c2}))
            << given.l1 << " " << given.c1 << " " << given.l2 << " " << given.c2;
    }
}

TEST_F(TextScreen, IsDumpedWithItsColours)
{
    open({.lines = 20, .columns = 24});
    window_hp(2, 3, 5, 20, color::light_red);
    _settextposition(2, 3);
    _settextcolor(color::yellow);
    _setbgcolor(color::blue);
    _outtext("caf\xE9 \x01~");
    _filled_circle(100, 100, 9, GrAllocColor(1, 2, 3));
    EXPECT_SCREEN("text_dump");
}

TEST_F(TextScreen, IsWrittenByAScriptThatAsksForIt)
{
    _outtext("seen");
    play("screen shot Q", [] { GrKeyRead(); });
    EXPECT_EQ(read_file("shot.txt"), screen_dump());
    EXPECT_TRUE(has_file("shot.png"));
}

} // namespace
} // namespace kq
