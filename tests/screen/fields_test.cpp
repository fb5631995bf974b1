#include "raster/keys.h"
#include "screen/dialogs.h"
#include "screen/fields.h"
#include "screen/text_state.h"
#include "support/screen_test.h"

namespace kq {
namespace {

using test::Ending;

class Fields : public test::ScreenTest {};

TEST_F(Fields, TextKeys)
{
    const struct {
        const char *before, *keys, *after;
        int ended;
    } cases[] = {
        {"", "\"Homo\" Enter", "Homo", key::enter},
        {"abc", "d Enter", "abcd", key::enter},
        {"abc", "Left*2 x Enter", "axbc", key::enter},
        {"abc", "Home BackSpace x Enter", "xabc", key::enter},
        {"abc", "Home Delete End BackSpace Enter", "b", key::enter},
        {"abc", "Delete Right Left*9 Delete Enter", "bc", key::enter},
        {"1234567", "\"89\" Enter", "12345678", key::enter}, // at most 8
        {"abc", "x Escape", "abcx", key::escape},
        {"abc", "Insert PgUp C-Left F11 Tab", "abc", key::tab},
        {"abc", "S-Tab", "abc", key::shift_tab},
        {"abc", "Down", "abc", key::down},
        {"abc", "S-F1", "abc", key::shift_f1},
    };
    for (const auto& c : cases) {
        std::string text = c.before;
        int ended = 0;
        const auto played = play(c.keys, [&] { ended = input_texte(text, 8, 3, 10); });
        EXPECT_EQ(text, c.after) << c.keys;
        EXPECT_EQ(ended, c.ended) << c.keys;
        EXPECT_EQ(played.keys_left, 0) << c.keys;
        EXPECT_EQ(line(3), std::string(9, ' ') + c.after) << c.keys;
        EXPECT_EQ(color_at(3, 10), color::light_green) << c.keys;
        _clearscreen(0);
    }
}

TEST_F(Fields, TheBlockCursorStandsAtTheInsertionPoint)
{
    std::string text = "abc";
    _settextwindow(2, 5, 20, 60);
    play("Left", [&] { input_texte(text, 8, 3, 10); });
    EXPECT_TRUE(cursor->shown);
    EXPECT_EQ(color_at(4, 14), color::yellow);
    EXPECT_EQ(cursor->x, (5 + 10 - 2 + 2) * 8) << "window, field, two characters";
    EXPECT_EQ(cursor->y, (2 + 3 - 2) * 14);
    play("Enter", [&] { input_texte(text, 8, 3, 10); });
    EXPECT_FALSE(cursor->shown);
}

TEST_F(Fields, ALongTextScrollsSideways)
{
    window_hp(5, 10, 7, 30, color::cyan); // 21 columns: a field at column 5 has room for 16
    std::string text = "0123456789abcdefghij";
    play("", [&] { input_texte(text, 60, 2, 5); });
    EXPECT_EQ(line(6), std::string(9, ' ') + "|   56789abcdefghij |");
    play("Home", [&] { input_texte(text, 60, 2, 5); });
    EXPECT_EQ(line(6), std::string(9, ' ') + "|   0123456789abcdef|");
    play("Left*18 X Enter", [&] { input_texte(text, 60, 2, 5); });
    EXPECT_EQ(text, "01X23456789abcdefghij");
    EXPECT_EQ(line(6), std::string(9, ' ') + "|   01X23456789abcde|");
    play("", [&] { input_texte(text, 60, 2, 5); });
    EXPECT_EQ(line(6), std::string(9, ' ') + "|   56789abcdefghij |") << "entered again";
}

TEST_F(Fields, NumberTexts)
{
    // What the call returns, and the value that was 7 before.
    const auto integer = [](const char* text) {
        int value = 7;
        const int result = verif_int(text, value, -100, 100);
        return std::pair{result, value};
    };
    const std::pair<const char*, int> integers[] = {{"", 0},      {"-5", -5},     {"-", 0},
                                                    {"100", 100}, {"-100", -100}, {"007", 7}};
    for (const auto& [text, value] : integers)
        EXPECT_EQ(integer(text), (std::pair{0, value})) << text;
    for (const char* text : {"5-", "101", "-101", "1.5", "12x", " 1", "99999999999999999999"})
        EXPECT_EQ(integer(text), (std::pair{-1, 7})) << text;

    const auto real = [](const char* text) {
        float value = 7;
        const int result = verif_float(text, value, -0.7f, 0.7f);
        return std::pair{result, value};
    };
    const std::pair<const char*, float> reals[] = {{"", 0.0f}, {"0.7", 0.7f}, {"-.5", -0.5f}, {".", 0.0f}};
    for (const auto& [text, value] : reals)
        EXPECT_EQ(real(text), (std::pair{0, value})) << text;
    for (const char* text : {"1.2.3", "0.71", "--1", "1e9", "nan"})
        EXPECT_EQ(real(text), (std::pair{-1, 7.0f})) << text;
}

TEST_F(Fields, NumberKeys)
{
    const struct {
        int before;
        const char* keys;
        int after, ended;
    } cases[] = {
        {30, "Enter", 30, key::enter},
        {30, "BackSpace 5 Up", 35, key::up},
        {30, "Home 5 Delete F9", 50, key::f9},
        {30, "BackSpace*2 Enter 2 Enter 5 Enter", 25, key::enter}, // "" and "2" are out of bounds
        {30, "BackSpace*2 1 Down F1 Escape", 30, key::escape},     // out of bounds, then unchanged
        {30, "End - Enter BackSpace Enter", 30, key::enter},       // "30-" is none
        {30, "F10 S-F1 Tab a . \"+\" Enter", 30, key::enter},      // keys that a number does not know
    };
    for (const auto& c : cases) {
        int value = c.before, ended = 0;
        const auto played = play(c.keys, [&] { ended = input_int(value, 20, 200, 2, 3); });
        EXPECT_EQ(value, c.after) << c.keys;
        EXPECT_EQ(ended, c.ended) << c.keys;
        EXPECT_EQ(played.keys_left, 0) << c.keys;
        _clearscreen(0);
    }
    int value = 0;
    play("\"00000315\" Enter", [&] { input_int(value, 1, 200, 2, 3); });
    EXPECT_EQ(value, 3) << "the seventh character and what follows are refused";
    float real = 0.5f;
    play("", [&] { input_float(real, 0, 1, 4, 3); });
    EXPECT_EQ(line(4), "  0.50");
    play("BackSpace*4 \".12345678901\" 2 Enter", [&] { input_float(real, 0, 1, 4, 3); });
    EXPECT_EQ(line(4), "  .12345678901");
    EXPECT_EQ(real, 0.12345678901f);
    real = 0;
    play("Enter", [&] { input_float(real, 1, 2, 6, 3); });
    EXPECT_EQ(line(6), "") << "zero is an empty field, and out of these bounds";
}

TEST_F(Fields, FileNamesAreCheckedAndCompleted)
{
    const std::string long_name(91, 'n');
    const struct {
        std::string typed, name;
        std::string_view complaint;
        bool added;
    } cases[] = {
        {"data", "data.ali", "", true},
        {"data.ali", "data.ali", "", false},
        {"data.txt", "data.ali", "The file name extension must be ali", false},
        {"data.", "data.ali", "The file name extension must be ali", false},
        {"data.ali.ali", "data.ali", "The file name extension must be ali", false},
        {"data.ALI", "data.ali", "The file name extension must be ali", false},
        {"", "", "You must give a file name", false},
        {".ali", ".ali", "You must give a file name", false},
        {long_name, long_name + ".ali", "", true},
        {long_name + "n", long_name + "n", "A file name has at most 95 characters", false},
    };
    for (const auto& c : cases) {
        std::string name = c.typed;
        const NameCheck check = check_file_name(name, "ali");
        EXPECT_EQ(check.complaint, c.complaint) << c.typed;
        EXPECT_EQ(name, c.name) << c.typed;
        EXPECT_EQ(check.extension_added, c.added) << c.typed;
    }
    for (const char forbidden : forbidden_in_file_names) {
        std::string name = std::string("a") + forbidden + "b";
        EXPECT_EQ(check_file_name(name, "ali").complaint,
                  "These characters  \"\\+=[]|*:/;,?\xE0\x15 are unauthorized in a file name");
    }
}

class FileNamePrompt : public test::ScreenTest {
protected:
    struct Result {
        int code = 9;
        std::string name;
        test::Played played;
    };
    Result ask(std::string_view keys, NameMode mode, std::string name = "")
    {
        Result result;
        result.name = std::move(name);
        result.played = play(keys, [&] {
            result.code = saisir_nom_fichier("File name (.ali):", result.name, "ali", path("seq/"), mode, 8);
        });
        return result;
    }
};

TEST_F(FileNamePrompt, AsksInABox)
{
    ask("", NameMode::read, "ovomucoid.ali");
    EXPECT_SCREEN("file_name_prompt");
    open({.lines = 20, .columns = 160});
    ask("", NameMode::read, "ovomucoid.ali");
    EXPECT_EQ(line(9).find("| File name (.ali): ovomucoid.ali"), 20U); // centred: (160 - 116 - 1) / 2
    open({.lines = 20, .columns = 20});
    const Result tiny = ask("\"abcdefghijklmnopqrst\" Home Delete Enter", NameMode::unchecked);
    EXPECT_EQ(tiny.name, "bcdefghijklmnopqrst.ali");
    ask("", NameMode::read, "ovomucoid.ali");
    EXPECT_EQ(line(9), "| File omucoid.ali |") << "the prompt gives way to the field";
}

TEST_F(FileNamePrompt, ReadsOnlyFilesThatExist)
{
    write_file("seq/here.ali", "");
    Result result = ask("\"there\" Enter x", NameMode::read);
    EXPECT_EQ(line_of("there"), 9);
    EXPECT_FALSE(shows("there.ali")) << "the extension that was added is gone again";
    result = ask("\"there\" Enter", NameMode::read);
    EXPECT_TRUE(shows("The file " + path("seq/there.ali") + " does not exist"));
    result = ask("\"there\" Enter x BackSpace*5 \"here\" Enter", NameMode::read);
    EXPECT_EQ(result.code, ok);
    EXPECT_EQ(result.name, "here.ali");
    result = ask("x Escape", NameMode::read, "here.ali");
    EXPECT_EQ(result.code, escaped);
    EXPECT_EQ(result.name, "here.ali");
}

} // namespace
} // namespace kq
