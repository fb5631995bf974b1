// The file chooser and the box in which a file is confirmed, copied, renamed and deleted.
#include "core/ali_screen.h"
#include "core/chooser.h"
#include "core/lifecycle.h"
#include "core/store.h"
#include "screen/directories.h"
#include "screen/files.h"
#include "screen/strings.h"
#include "support/screen_test.h"
#include "taxonomy/frame_files.h"

#include <unistd.h>

#include <filesystem>

using namespace kq;
using kq::test::Ending;

namespace {

const std::string alignment = "#16S ribosomal RNA\n#Bacteria\n>one\nACGU\n>two\nAC\n";

class ChooserTest : public kq::test::ScreenTest {
public:
    ChooserTest()
    {
        stop_clock(1179302400); // 16 May 2007, 8 hours
        store_allocate();
        alignment_reset();
        chooser_reset();
        file_frame = {"BACTERIA"};
        no_frame = 0;
        file_NOM = "/d/zolt/data/bacteria.nom";
        file_COL = "/d/zolt/data/bacteria.col";
        dir_ZOLTEXE = "/d/zoltexe/"; // the screen shows it: the same in every run
    }
    ~ChooserTest() override { alignment_reset(); }

    void make_files(int count)
    {
        for (int i = 1; i <= count; i++)
            write_file(text_format("seq/file%03d.ali", i), alignment);
    }
    std::string highlighted() const { return text_in(color::yellow, 6); }
    kq::test::Played choose(std::string_view keys) { return play(keys, choice_File); }
};

} // namespace

TEST_F(ChooserTest, ShowsTheAlignmentsAndTheFilesInUse)
{
    write_file("seq/small.ali", alignment);
    write_file("seq/Bacteria.ali", alignment);
    write_file("seq/a_name_of_more_than_thirty_characters.ali", alignment);
    write_file("seq/.hidden.ali", alignment);
    write_file("seq/small.bak", alignment);
    std::filesystem::create_directory(path("seq/folder.ali"));
    EXPECT_EQ(choose("").ending, Ending::script_ended);
    EXPECT_SCREEN("chooser");
    EXPECT_EQ(highlighted(), "Bacteria.ali");
    EXPECT_EQ(choose("Down Enter").ending, Ending::script_ended);
    EXPECT_EQ(file_ALI, "a_name_of_more_than_thirty_characters.ali"); // cut on the screen, opened whole
}

TEST_F(ChooserTest, MovesWrapAroundThePage)
{
    make_files(30); // 27 in the first screen column, 3 in the second
    const std::pair<const char*, const char*> cases[] = {
        {"Down", "file002.ali"},        {"Up", "file030.ali"},          {"Up Down", "file001.ali"},
        {"PgDn", "file006.ali"},        {"PgUp", "file026.ali"},        {"Right Right", "file001.ali"},
        {"Left", "file028.ali"},        {"Down*3 Left", "file004.ali"}, {"Down*3 Right", "file004.ali"},
        {"Down*2 Left", "file030.ali"}, {"F7", "file001.ali"},          {"F8", "file001.ali"},
        {"Z", "file001.ali"},
    };
    for (const auto& [keys, expected] : cases) {
        chooser_reset();
        choose(keys);
        EXPECT_EQ(highlighted(), expected) << keys;
    }
}

TEST_F(ChooserTest, PagesFollowEachOther)
{
    make_files(55);
    choose("");
    EXPECT_TRUE(shows("F1:Help  F2:Other               F8:Next  ESCAPE:Exit"));
    choose("Down F8");
    EXPECT_EQ(highlighted(), "file055.ali");
    EXPECT_TRUE(shows("F1:Help  F2:Other  F7:Previous           ESCAPE:Exit"));
    EXPECT_FALSE(shows("file001.ali"));
    choose("F8 F8 F7");
    EXPECT_EQ(highlighted(), "file001.ali");
    choose("F8 Left Right Up PgUp F2 Down Enter Z"); // a program that is not there
    EXPECT_EQ(highlighted(), "file055.ali");
    make_files(120);
    choose("F8");
    EXPECT_TRUE(shows("F1:Help  F2:Other  F7:Previous  F8:Next  ESCAPE:Exit"));
    EXPECT_EQ(highlighted(), "file055.ali");
}

TEST_F(ChooserTest, SurvivesFilesThatVanish)
{
    make_files(55);
    EXPECT_EQ(choose("F8").ending, Ending::script_ended);
    for (int i = 2; i <= 55; i++)
        remove(path(text_format("seq/file%03d.ali", i)).c_str());
    choose("F8 Down");
    EXPECT_EQ(highlighted(), "file001.ali");
    remove(path("seq/file001.ali").c_str());
    const auto ended = choose("Enter");
    EXPECT_EQ(ended.ending, Ending::program_ended);
    EXPECT_EQ(ended.status, 1);
}

TEST_F(ChooserTest, FitsEveryGeometry)
{
    make_files(40);
    for (const auto& [lines, columns] : {std::pair{20, 20}, {20, 200}, {200, 20}, {21, 36}, {200, 200}}) {
        open({.lines = lines, .columns = columns});
        chooser_reset();
        EXPECT_EQ(choose("Down Left Right PgDn F8 F7 F8 Enter").ending, Ending::script_ended);
        EXPECT_TRUE(shows("ESCAPE:Cancel")) << lines << " x " << columns;
        EXPECT_TRUE(shows("F2:Rename")) << lines << " x " << columns;
    }
}

TEST_F(ChooserTest, ConfirmsWhatIsInTheFile)
{
    write_file("seq/small.ali", alignment);
    set_file_time("seq/small.ali", 1179216000);
    choose("Enter");
    EXPECT_SCREEN("chooser_confirm");
    EXPECT_EQ(choose("Enter Esc").ending, Ending::script_ended);
    EXPECT_FALSE(shows("Molecule:"));
    EXPECT_EQ(ident, nullptr);
}

TEST_F(ChooserTest, WarnsAboutEachRecodedCharacterThenAboutTheError)
{
    write_file("seq/bad.ali", "#\n#\n>one\nEBZ\n>two\nEO\n");
    for (const char* keys : {"Enter", "Enter A"}) {
        choose(keys);
        EXPECT_TRUE(shows("A character encoded by B or Z has been recoded by X")) << keys;
    }
    choose("Enter A A");
    EXPECT_TRUE(shows("Character O (79) is not an amino acid (on line 6)"));
    EXPECT_EQ(choose("Enter A A A").ending, Ending::script_ended);
    EXPECT_EQ(highlighted(), "bad.ali");
}

TEST_F(ChooserTest, DeletesCopiesAndRenames)
{
    write_file("seq/small.ali", alignment);
    choose("Enter Del Enter"); // No
    EXPECT_TRUE(has_file("seq/small.ali"));

    choose("Enter Ins \"copy\" Enter");
    EXPECT_EQ(read_file("seq/copy.ali"), alignment);
    EXPECT_EQ(read_file("seq/small.ali"), alignment);
    EXPECT_TRUE(shows("copy.ali"));

    write_file("seq/other.ali", "something else");
    choose("Enter F2 \"other\" Enter Esc Esc"); // copy.ali; not overwritten
    EXPECT_EQ(read_file("seq/other.ali"), "something else");
    choose("Enter F2 \"other\" Enter Enter");
    EXPECT_EQ(read_file("seq/other.ali"), alignment);
    EXPECT_FALSE(has_file("seq/copy.ali"));

    choose("Enter Del Y");
    EXPECT_FALSE(has_file("seq/other.ali"));
    EXPECT_EQ(highlighted(), "small.ali");

    // Its own name loses nothing; nor does the same file under another name.
    for (const char* keys : {"Enter F2 \"small\" Enter Enter", "Enter Ins \"small\" Enter Enter"}) {
        EXPECT_EQ(choose(keys).ending, Ending::script_ended);
        EXPECT_EQ(read_file("seq/small.ali"), alignment) << keys;
    }
    ASSERT_EQ(link(path("seq/small.ali").c_str(), path("seq/twin.ali").c_str()), 0);
    choose("Enter F2 \"twin\" Enter Enter");
    EXPECT_EQ(read_file("seq/twin.ali"), alignment);
}

TEST_F(ChooserTest, SavingIsAskedForOnlyWhenNeeded)
{
    write_file("seq/small.ali", alignment);
    choose("Enter Enter");
    const auto expect = [&](const char* keys, int result, int modif_after) {
        int found = 9;
        const auto played = play(keys, [&] { found = verif_sauvegarde(); });
        EXPECT_EQ(played.ending, Ending::returned) << keys;
        EXPECT_EQ(played.keys_left, 0) << keys;
        EXPECT_EQ(found, result) << keys;
        EXPECT_EQ(modif, modif_after) << keys;
    };
    expect("", 0, 255);
    mark_changed();
    expect("Esc", -1, 0);
    expect("N", 0, 0);
    EXPECT_FALSE(has_file("seq/small.bak"));
    expect("Y", 0, 255);
    EXPECT_TRUE(has_file("seq/small.bak"));
    // A save that fails warns and keeps the user where he is.
    mark_changed();
    dir_SEQ = path("absent/");
    expect("Y Enter", -1, 0);
}

TEST_F(ChooserTest, NamesTheFamilies)
{
    const auto identify = [&](int families) {
        std::string text = "#\n#\n";
        for (int i = 0; i < families; i++)
            text += ">f" + std::to_string(i) + "-x\nA\n";
        write_file("seq/small.ali", text);
        choose("Enter Enter");
        return play("Enter", identify_family);
    };
    EXPECT_EQ(identify(1).keys_left, 0);
    EXPECT_EQ(identify(2).keys_left, 1);
    EXPECT_EQ(identify(38).status, 1);
    EXPECT_NE(errors().find("Too many paralog families. Increase MAXFAMILY"), std::string::npos);
}
