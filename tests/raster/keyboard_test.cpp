// Keys: from strokes to codes, their names, and scripts of them.
#include "raster/key_names.h"
#include "raster/key_script.h"
#include "raster/keys.h"
#include "raster/keysyms.h"

#include <gtest/gtest.h>

#include <set>

#define XK_MISCELLANY
#define XK_XKB_KEYS
#define XK_LATIN1
#include <X11/keysymdef.h>

namespace kq {
namespace {

enum : unsigned { shift = 1, control = 2, alt = 4, num_lock = 8 };

int code(unsigned long keysym, unsigned modifiers = 0, unsigned char character = 0)
{
    return key_code_of({keysym, (modifiers & shift) != 0, (modifiers & control) != 0, (modifiers & alt) != 0,
                        (modifiers & num_lock) != 0, character});
}

// Every key that the program knows, as a keyboard sends it.
TEST(Keyboard, EveryKeyOfTheProgramArrives)
{
    struct Stroke {
        unsigned long keysym;
        unsigned modifiers;
        unsigned char character;
        int expected;
    };
    // clang-format off
    const Stroke strokes[] = {
        {XK_BackSpace, 0, 8, 8}, {XK_Tab, 0, 9, 9}, {XK_Return, 0, 13, 13}, {XK_KP_Enter, 0, 13, 13}, {XK_Escape, 0, 27, 27},
        {XK_Delete, 0, 127, 127}, {XK_KP_Delete, 0, 0, 127}, {XK_KP_Delete, num_lock | shift, 0, 127},
        {XK_space, 0, ' ', ' '}, {XK_asciitilde, shift, '~', '~'}, {XK_A, shift, 'A', 'A'}, {XK_a, 0, 'a', 'a'},
        {XK_eacute, 0, 0xE9, 0xE9},
        {XK_ISO_Left_Tab, shift, 0, 271}, {XK_Tab, shift, 9, 271},
        {XK_F1, 0, 0, 315}, {XK_F10, 0, 0, 324}, {XK_F11, 0, 0, 389}, {XK_F12, 0, 0, 390},
        {XK_F1, shift, 0, 340}, {XK_F10, shift, 0, 349}, {XK_F11, shift, 0, 391}, {XK_F12, shift, 0, 392},
        {XK_Home, 0, 0, 327}, {XK_Up, 0, 0, 328}, {XK_Prior, 0, 0, 329}, {XK_Left, 0, 0, 331}, {XK_Right, 0, 0, 333},
        {XK_End, 0, 0, 335}, {XK_Down, 0, 0, 336}, {XK_Next, 0, 0, 337}, {XK_Insert, 0, 0, 338},
        {XK_Left, control, 0, 371}, {XK_Right, control, 0, 372}, {XK_End, control, 0, 373},
        {XK_Up, control, 0, 397}, {XK_Down, control, 0, 401},
        {XK_Insert, control, 0, 402}, {XK_Insert, shift, 0, 439},
        {XK_BackSpace, alt, 8, 270}, {XK_KP_Subtract, alt, '-', 330}, {XK_KP_Add, alt, '+', 334},
        {XK_less, alt, '<', 432}, {XK_less, alt | shift, '<', 432},
        // the keypad: digits with NumLock, moves without; Shift then turns it around
        {XK_KP_4, num_lock, '4', '4'}, {XK_KP_Add, 0, '+', '+'}, {XK_KP_Left, 0, 0, 331},
        {XK_KP_Left, num_lock | shift, 0, 331}, {XK_KP_Left, control, 0, 371},
        {XK_KP_Insert, 0, 0, 338}, {XK_KP_Insert, shift, 0, 439}, {XK_KP_Insert, num_lock | shift, 0, 338},
        // control characters stand for themselves
        {XK_h, control, 8, 8}, {XK_bracketleft, control, 27, 27},
    };
    // clang-format on
    for (const auto& s : strokes)
        EXPECT_EQ(code(s.keysym, s.modifiers, s.character), s.expected)
            << std::hex << s.keysym << " modifiers " << s.modifiers;
    for (unsigned long i = 0; i < 10; i++) {
        EXPECT_EQ(code(XK_F1 + i), key::f1 + static_cast<int>(i));
        EXPECT_EQ(code(XK_F1 + i, shift), key::shift_f1 + static_cast<int>(i));
    }
}

TEST(Keyboard, OtherStrokesAreNoKeys)
{
    EXPECT_EQ(code(XK_x, alt, 'x'), 0) << "a letter with Alt must not type the letter";
    EXPECT_EQ(code(XK_minus, alt, '-'), 0) << "only the keypad's minus";
    EXPECT_EQ(code(XK_F1, control), 0);
    EXPECT_EQ(code(XK_Left, shift), 0);
    EXPECT_EQ(code(XK_Delete, alt, 127), 0);
    EXPECT_EQ(code(XK_Shift_L, shift), 0);
    EXPECT_EQ(code(XK_Scroll_Lock, 0, 20), 0) << "X gives a control character for it";
    EXPECT_EQ(code(XK_space, control, 0), 0);
}

TEST(KeyNames, EveryNameLeadsBackToItsKey)
{
    std::set<std::string> names;
    for (int c = 0; c < 600; c++) {
        const auto name = key_name(c);
        if (name.empty()) continue;
        EXPECT_EQ(key_code(name), c) << name;
        EXPECT_TRUE(names.insert(name).second) << name << " names two keys";
    }
    EXPECT_EQ(names.size(), 168U);
}

TEST(KeyNames, AliasesAndCase)
{
    const std::pair<const char*, int> cases[] = {
        {"F2", 316},     {"s-f10", 349}, {"Esc", 27},    {"ESCAPE", 27},
        {"Del", 127},    {"ins", 338},   {"S-Ins", 439}, {"A-backspace", 270},
        {"C-Left", 371}, {"A-<", 432},   {"c-a", 1},     {"q", 'q'},
        {"Q", 'Q'},      {"-", '-'},     {"F13", 0},     {"", 0},
        {"S-Left", 0},   {"C-", 0},      {"C-1", 0},     {"S-", 0},
    };
    for (const auto& [name, expected] : cases)
        EXPECT_EQ(key_code(name), expected) << name;
}

// A script as one line: codes of a step joined by "+", "xN" for repeats, "!" for early, screens in brackets.
std::string summary(const KeyScript& script)
{
    std::string all;
    for (const auto& step : script.steps) {
        if (!all.empty()) all += ' ';
        if (step.early) all += '!';
        if (step.kind == ScriptStep::screen) {
            all += '[' + step.name + ']';
            continue;
        }
        for (std::size_t i = 0; i < step.codes.size(); i++)
            all += (i > 0 ? "+" : "") + std::to_string(step.codes[i]);
        if (step.count != 1) all += 'x' + std::to_string(step.count);
    }
    return all;
}

TEST(KeyScript, Grammar)
{
    const std::pair<const char*, const char*> cases[] = {
        {"", ""},
        {"  # nothing but a comment", ""},
        {"F2 S-F10\tDown\r\nQ", "316 349 336 81"},
        {"Down*3 **12 *", "336x3 42x12 42"},
        {"\"a b\" \"x\"*2 \"\"", "97+32+98 120x2"},
        {R"("\"\\#")", "34+92+35"},
        {"F1 # F2\nF3", "315 317"},
        {"screen first F1 screen a-2.b", "[first] 315 [a-2.b]"},
        {"early Esc early \"ab\" F1", "!27 !97+98 315"},
        {"early # no word\nF1", "315"},
    };
    for (const auto& [text, expected] : cases)
        EXPECT_EQ(summary(parse_key_script(text)), expected) << text;
}

TEST(KeyScript, MistakesAreNamedWithTheirLine)
{
    const std::pair<const char*, const char*> cases[] = {
        {"F1\n\n# F13\nF13", "line 4: there is no key \"F13\""},
        {"F1#F2", "line 1: there is no key \"F1#F2\""},
        {"Down*0", "line 1: \"0\" is no number of times (1 to 1000000)"},
        {"Down*1000001", "line 1: \"1000001\" is no number of times (1 to 1000000)"},
        {"Down*", "line 1: \"\" is no number of times (1 to 1000000)"},
        {"\"ab", "line 1: the quoted text has no end"},
        {"\"ab\"c", "line 1: \"c\" follows a quoted text without a blank"},
        {"screen\nF1",
         "line 1: \"screen\" needs a name of letters, digits, \"_\", \"-\" and \".\", not \"\""},
        {"screen ../x",
         "line 1: \"screen\" needs a name of letters, digits, \"_\", \"-\" and \".\", not \"../x\""},
        {"early\nF1", "line 1: there is no key \"\""},
    };
    for (const auto& [text, expected] : cases)
        EXPECT_EQ(parse_key_script(text).mistakes, std::vector<std::string>{expected}) << text;
}

} // namespace
} // namespace kq
