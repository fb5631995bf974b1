#include "screen/help.h"
#include "screen/strings.h"
#include "support/screen_test.h"

namespace kq {
namespace {

using test::Ending;

class Help : public test::ScreenTest {
protected:
    void write_lines(int count)
    {
        std::string text;
        for (int i = 1; i <= count; i++)
            text += text_format("line %d\n", i);
        write_file("zoltexe/KQ0.HLP", text);
    }
    test::Played view(std::string_view keys)
    {
        return play(keys, [] { _aide("KQ0", 3, 10, 16, 60); }); // 10 lines a page
    }
};

TEST_F(Help, AMissingFileIsAWarning)
{
    view("");
    EXPECT_EQ(line_of("The help file " + path("zoltexe/KQ0.HLP") + " does not exist"), 4);
    EXPECT_EQ(view("Q").ending, Ending::returned);
}

TEST_F(Help, ShortFilesMakeALowBox)
{
    write_lines(3);
    view("F7 F8 Q");
    EXPECT_SCREEN("help_short");
    EXPECT_EQ(view("Escape").ending, Ending::returned);
    EXPECT_EQ(x1_win, 2);
    EXPECT_EQ(y2_win, 59);
    EXPECT_TRUE(shows("line 2")) << "the caller redraws";
}

TEST_F(Help, PagesAndTheirLegends)
{
    write_lines(10);
    view("F8");
    EXPECT_TRUE(shows("line 10"));
    EXPECT_EQ(line(15), std::string(9, ' ') + "| ESCAPE:Cancel" + std::string(35, ' ') + "|");
    EXPECT_EQ(nb_page_aide, 1);

    write_lines(25);
    view("F7");
    EXPECT_TRUE(shows("ESCAPE:Cancel   F8:Next  "));
    EXPECT_TRUE(shows("line 10"));
    view("F8");
    EXPECT_TRUE(shows("ESCAPE:Cancel   F7:Previous  F8:Next"));
    EXPECT_EQ(line_of("line 11"), 4);
    view("F8*5");
    EXPECT_SCREEN("help_last_page");
    view("F8*2 F7");
    EXPECT_TRUE(shows("line 20"));
    EXPECT_FALSE(shows("line 21"));
}

TEST_F(Help, LongLinesAndEmptyFiles)
{
    write_file("zoltexe/KQ0.HLP", std::string(100, 'x') + "\r\nend");
    view("");
    EXPECT_EQ(nb_aide, 4) << "47 columns inside the box";
    EXPECT_EQ(line(4), std::string(9, ' ') + "| " + std::string(47, 'x') + " |");
    write_file("zoltexe/KQ0.HLP", "");
    EXPECT_EQ(view("F7 F8 Escape").ending, Ending::returned);
    open({.lines = 20, .columns = 20});
    write_lines(100);
    EXPECT_EQ(play("F8*9 Escape", [] { _aide("KQ0", 18, 1, 20, 80); }).ending, Ending::returned);
    view("F8");
    EXPECT_TRUE(shows("| ESC F7 F8 ")) << "every key of the page is named";
}

TEST_F(Help, AFileThatShrinksShowsEmptyLines)
{
    write_lines(25);
    nb_aide = 25;
    nb_line_page = 10;
    nb_page_aide = 3;
    write_lines(5);
    _settextwindow(1, 1, 20, 60);
    const auto played = play("F7", [] { EXPECT_NE(_affich_page_aide("KQ0", 1), 0); });
    EXPECT_EQ(played.ending, Ending::returned);
    EXPECT_EQ(line(1), "");
    EXPECT_TRUE(shows("F7:Previous"));
}

} // namespace
} // namespace kq
