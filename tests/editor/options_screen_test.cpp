// The options screen and the palette editor, key by key.
#include "core/residues.h"
#include "editor/options_file.h"
#include "editor_test.h"

#include <filesystem>

using namespace kq;
using test::EditorTest;
using test::Ending;

namespace {

constexpr auto options_name = "zolt/data/kq_aff.sys";
constexpr auto palette = "F8 Down*5 Enter ";

class OptionsScreen : public EditorTest {
public:
    OptionsScreen()
        : EditorTest({.lines = 34, .columns = 100})
    {
        load({"ACGT*ACGUN", "ACGA*AC UR", "TCGT*ACGU*"});
        write_file("zolt/data/pyx.sys", "0\n14\n8\n34\n100\n");
    }
    std::string digits() const
    {
        auto text = read_file(options_name);
        std::erase(text, '\n');
        return text;
    }
};

} // namespace

TEST_F(OptionsScreen, ShowsTheOptionsOverTheAlignment)
{
    edit("Right F8 Down");
    EXPECT_SCREEN("options");
}

TEST_F(OptionsScreen, EachEntrySetsItsOptionAndLeavingWritesTheFile)
{
    opt_nogap = 1;
    const struct {
        const char* keys;
        std::string options; // as written
    } cases[] = {
        {"Escape", "01000"},
        {"Enter Down Enter Escape", "11000"},
        {"Enter Up Escape Escape", "11000"}, // ESCAPE in the second menu
        {"Down*2 Enter Down Enter Enter Up Enter Enter Down Enter Escape", "11100"}, // stays on the entry
        {"Down*3 Enter Down Enter Escape", "11110"},
        {"Down*3 Enter Down Enter Escape", "11120"},
        {"Up*2 Enter Down*2 Enter Escape", "11122"},
        {"Down Enter Up Enter Escape", "10122"},
    };
    for (const auto& [keys, options] : cases) {
        std::remove(path(options_name).c_str());
        edit(std::string("F8 ") + keys);
        EXPECT_EQ(digits().substr(0, 5), options) << keys;
        EXPECT_EQ(digits().size(), 44U) << keys;
    }
}

TEST_F(OptionsScreen, HidingGapsGoesToTheFirstPositionWhenItChanges)
{
    edit("Right*3 F8 Down Enter Enter Escape");
    EXPECT_EQ(cursor_position(), 3) << "the same value changes nothing";
    edit("Right*3 F8 Down Enter Down Enter Escape");
    EXPECT_EQ(cursor_position(), 0);
    EXPECT_EQ(nb_nuc, 10);
    edit("Right*3 F8 Down Enter Up Enter Escape");
    EXPECT_EQ(nb_nuc, 9);

    opt_nogap = 1;
    load({"****"});
    const auto played = edit("Right F8 Down Enter Up Enter Q Escape");
    EXPECT_EQ(played.ending, Ending::script_ended) << "hiding all columns would end the program";
    EXPECT_EQ(opt_nogap, 1);
    EXPECT_EQ(view_error(), "");
}

TEST_F(OptionsScreen, TheConsensusLineIsComputedEvenWhenTheChoiceIsEscaped)
{
    opt_consensus = 1;
    edit("Right");
    ligne_consensus[0] = '!';
    counts_forget();
    edit("F8 Down*4 Enter Escape Escape");
    EXPECT_EQ(ligne_consensus[0], '*');
    edit("F8 Down*4 Enter Up Enter Escape");
    EXPECT_EQ(line(33).substr(29, 9), "#Ensemble");
}

// ---- the palette ------------------------------------------------------------------------------------------

TEST_F(OptionsScreen, ShowsThePalette)
{
    edit(std::string(palette) + "Down*6 A ? C");
    EXPECT_SCREEN("palette");
    load({"MKVLAAGI", "MKVL  GI"}, {}, test::protein);
    edit(std::string(palette) + "Up*2 W F5 Escape");
    EXPECT_EQ(color_char_prot[static_cast<std::size_t>(code_prot('W'))], 6);
    options_reset();
    edit(std::string(palette) + "Up");
    EXPECT_TRUE(shows(" : *")) << "the gap";
    EXPECT_TRUE(shows(" : AFILV"));
    EXPECT_TRUE(shows(" : ? ")) << "the unknown residue, in the first class";
}

TEST_F(OptionsScreen, LettersMoveAndTheAlignmentShowsItAtOnce)
{
    edit("Right*3");
    const int before = background_at(1, 30 + 1);
    edit(std::string(palette) + "Down*6 c Down k"); // brown, by a small letter; k occurs nowhere
    EXPECT_EQ(color_char_arn[4], 6);
    EXPECT_EQ(color_char_arn[3], 7);
    EXPECT_NE(background_at(1, 30 + 1), before) << "under the boxes, while the palette is open";
    const int brown = background_at(1, 30 + 1);
    edit(std::string(palette) + "Down*6 c F5 Escape Right*3");
    EXPECT_EQ(background_at(1, 30 + 1), brown);
    EXPECT_EQ(digits().substr(5 + 4, 1), "6");

    const auto arn = color_char_arn;
    edit(std::string(palette) + "U z 1 @ Left Right F1 Home F5 Escape");
    EXPECT_EQ(color_char_arn[1], 0);
    color_char_arn[1] = arn[1];
    EXPECT_TRUE(color_char_arn == arn) << "other keys move nothing";
}

TEST_F(OptionsScreen, EscapeRestoresThePaletteWhateverTheDiskDoes)
{
    color_char_arn[8] = 4, opt_tiret = 1;
    const auto arn = color_char_arn;
    edit(std::string(palette) + "A C G ? Escape");
    EXPECT_TRUE(color_char_arn == arn);
    EXPECT_EQ(opt_tiret, 1);
    EXPECT_EQ(digits().substr(5 + 8, 1), "4");

    // The folder goes away: entering and leaving warn, the palette lives on.
    std::filesystem::remove_all(path("zolt/data"));
    edit(palette);
    EXPECT_TRUE(shows("The display options are not saved"));
    edit(std::string(palette) + "Q A C Escape Escape Q Right");
    EXPECT_TRUE(color_char_arn == arn);
    EXPECT_EQ(opt_tiret, 1);
    edit(std::string(palette) + "Q A F5 Escape Q Right");
    EXPECT_EQ(color_char_arn[8], 0) << "and so does an accepted change";
    EXPECT_EQ(view_error(), "");
}

TEST_F(OptionsScreen, FitsSmallWindows)
{
    open({.lines = 20, .columns = 20});
    edit("F8 Down*5");
    EXPECT_SCREEN("options_tiny");
    edit(std::string(palette) + "Down*5 A C G T Right*3");
    EXPECT_SCREEN("palette_tiny");
}
