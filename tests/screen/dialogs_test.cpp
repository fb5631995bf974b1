#include "screen/dialogs.h"
#include "screen/strings.h"
#include "support/screen_test.h"

namespace kq {
namespace {

using test::Ending;
using test::Played;

class Dialogs : public test::ScreenTest {
protected:
    Played ask(std::string_view keys, int& answer, std::string_view question = "Do you want it?")
    {
        return play(keys, [&] { answer = confirme(question, 5); });
    }
    Played choose(std::string_view keys, int& choice, int current = 0)
    {
        static constexpr std::string_view items[] = {"one", "two", "three", "four", "five", "six", "seven"};
        return play(keys, [&] { choice = _choice_option(4, current, items, 10); });
    }
};

TEST_F(Dialogs, AWarningIsShownUntilAnyKey)
{
    auto played = play("", [] { affich_avert("There is no file for this program", 10); });
    EXPECT_EQ(played.ending, Ending::script_ended);
    EXPECT_SCREEN("dialog_warning");
    played = play("F5 Q", [] { affich_avert("There is no file for this program", 10); });
    EXPECT_EQ(played.keys_left, 1);
    EXPECT_FALSE(shows("Press"));
    EXPECT_EQ(line(10), "");
}

TEST_F(Dialogs, AWarningWiderThanTheScreenIsBrokenIntoLines)
{
    play("", [] {
        affich_avert("The file " + std::string(89, 'd') + " exists already and will be overwritten", 31);
    });
    EXPECT_SCREEN("dialog_warning_long");
}

TEST_F(Dialogs, AWarningWithoutKeySaysWhetherOneWaits)
{
    bool waiting = true;
    play("Q", [&] { waiting = affich_avert_no_key("Waiting", 5); });
    EXPECT_FALSE(waiting);
    EXPECT_EQ(line(5), std::string(33, ' ') + "+---------+"); // columns (80 - 10 - 1) / 2 = 34 to 44
    EXPECT_EQ(color_of("Waiting"), color::red);
    play("early Q", [&] { waiting = affich_avert_no_key("Waiting", 5); });
    EXPECT_TRUE(waiting);
}

TEST_F(Dialogs, ProgressIsShownAtItsPlace)
{
    play("", [] { affich_progress("NOW READING", 7, 30, 50, color::yellow); });
    EXPECT_EQ(line(8), std::string(29, ' ') + "| NOW READING       |");
    EXPECT_EQ(color_of("NOW"), color::yellow);
}

TEST_F(Dialogs, AConfirmationIsAnsweredByKeys)
{
    int answer = 9;
    ask("", answer);
    EXPECT_SCREEN("dialog_confirmation");
    ask("Left", answer);
    EXPECT_EQ(color_of("(Yes)"), color::yellow);
    const struct {
        const char* keys;
        int answer;
    } cases[] = {{"Enter", 1},
                 {"Escape", -1},
                 {"y", 0},
                 {"N", 1},
                 {"Right Enter", 0},
                 {"BackSpace Enter", 0},
                 {"Left Right Enter", 1},
                 {"Tab x F1 Up 0 Enter", 1},
                 {"Left Escape", -1}};
    for (const auto& c : cases) {
        const auto played = ask(c.keys, answer);
        EXPECT_EQ(answer, c.answer) << c.keys;
        EXPECT_EQ(played.keys_left, 0) << c.keys;
        EXPECT_EQ(line(6), "") << c.keys;
    }
}

TEST_F(Dialogs, OverwritingIsAskedOnlyForFilesThatExist)
{
    int answer = 9;
    auto played = play("Q", [&] { answer = confirme_ecrase_file(path("seq/new.ali"), 5); });
    EXPECT_EQ(answer, 0);
    EXPECT_EQ(played.keys_left, 1) << "nothing was asked";
    write_file("seq/old.ali", "x");
    for (const auto& [keys, expected] : {std::pair{"Y Down Enter", 0}, {"N Escape", -1}, {"", -1}}) {
        play(keys, [&] { answer = confirme_ecrase_file(path("seq/old.ali"), 5); });
        EXPECT_EQ(answer, expected) << keys;
    }
    EXPECT_EQ(color_of("The file " + path("seq/old.ali") + " exists already and will be overwritten"),
              color::red);
    EXPECT_EQ(color_of("ENTER:Confirm     ESCAPE:Cancel"), color::light_cyan);
}

TEST_F(Dialogs, AMenuWrapsAround)
{
    int choice = 9;
    choose("Down", choice, 2);
    EXPECT_SCREEN("dialog_menu");
    const struct {
        const char* keys;
        int current, choice;
    } cases[] = {{"Enter", 3, 3},          {"Down Enter", 6, 0}, {"PgDn Enter", 4, 2}, {"PgUp Enter", 1, 3},
                 {"x F1 Tab Enter", 1, 1}, {"Escape", 1, -1},    {"Enter", 99, 6},     {"Enter", -4, 0}};
    for (const auto& c : cases) {
        choose(c.keys, choice, c.current);
        EXPECT_EQ(choice, c.choice) << c.keys << " from " << c.current;
        EXPECT_EQ(line(5), "");
    }
    EXPECT_EQ(_choice_option(4, 0, {}, 10), escaped);
}

TEST_F(Dialogs, AMenuLongerThanTheScreenScrolls)
{
    open({.lines = 20, .columns = 30});
    std::vector<std::string> texts;
    for (int i = 0; i < 36; i++)
        texts.push_back(text_format("item %02d", i));
    const std::vector<std::string_view> items(texts.begin(), texts.end());
    int choice = 9;
    play("Up", [&] { choice = _choice_option(1, 0, items, 7); });
    EXPECT_EQ(line_of("item 35"), 19);
    EXPECT_EQ(color_of("item 35"), color::yellow);
    EXPECT_EQ(line_of("item 18"), 2);
    play("Up Up*25", [&] { choice = _choice_option(1, 0, items, 7); });
    EXPECT_EQ(line_of("item 10"), 2) << "the first line once the highlight has reached it";
    play("Down*20 Enter", [&] { choice = _choice_option(1, 0, items, 7); });
    EXPECT_EQ(choice, 20);
}

TEST_F(Dialogs, StayReadableOnTheSmallestScreen)
{
    open({.lines = 20, .columns = 20});
    play("", [] { affich_avert("There is no file for this program", 10); });
    EXPECT_SCREEN("tiny_warning");
    _clearscreen(0);
    play("", [] { confirme("Do you really want to exit from this program?", 18); });
    EXPECT_SCREEN("tiny_confirmation");
    _clearscreen(0);
    static constexpr std::string_view items[] = {"Select the number of lines",
                                                 "Select the number of columns"};
    play("Right*9 Down", [] { _choice_option(1, 0, items, 30); });
    EXPECT_SCREEN("tiny_menu");
}

} // namespace
} // namespace kq
