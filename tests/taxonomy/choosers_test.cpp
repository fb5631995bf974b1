// Choosing the frame, the groups and the colours; the names that are remembered.
#include "tree_fixture.h"

#include <filesystem>

using namespace kq;
using namespace kq::test;

namespace {

class Choosers : public TreeTest {
public:
    Choosers()
    {
        write_file("zoltexe/TWO.fra", "2 June\n(B:371:24:-1,A:371:8:-1)Root:3:16:-1;\n");
        write_file("zoltexe/FIVE.fra", "1 May\n" + std::string(five_leaves) + "\n");
        write_file("zolt/data/some.nom", "");
        write_file("zolt/data/some.col", "10,A\n");
    }
    Played choose_nom(std::string_view keys)
    {
        return play(keys, [this] { result = choice_file_NOM(); });
    }
    void start(const std::string& frame = "FIVE") { read_taxonomy(frame, "some"); }
    int result = -99;
};

} // namespace

TEST_F(Choosers, NonsenseInTheMemoryFileIsAskedAnew)
{
    const std::string good = path("zolt/data/some.nom") + "\n" + path("zolt/data/some.col") + "\n";
    for (const std::string& memory :
         {std::string(), std::string(5000, 'x'), std::string("\0\n\n\xff", 4),
          std::string("TWO\n/tmp\n/tmp\n"), "TWO\n/nowhere.nom\n" + path("zolt/data/some.col"),
          "TWO\n" + std::string(120, '/') + good}) {
        write_file("zolt/data/afas.ref", memory);
        // Escape does not help: a group file is needed. The second list is that of the colours.
        const Played played = play("Escape Escape Enter Enter Enter", [] { read_FRA_NOM_COL(); });
        EXPECT_EQ(played.ending, Ending::returned);
        EXPECT_EQ(file_NOM, path("zolt/data/some.nom"));
        EXPECT_EQ(file_COL, path("zolt/data/some.col"));
        EXPECT_EQ(no_frame, memory.starts_with("TWO") ? 1 : 0);
    }
}

TEST_F(Choosers, NoFrameEndsTheProgram)
{
    std::filesystem::remove(path("zoltexe/TWO.fra"));
    std::filesystem::remove(path("zoltexe/FIVE.fra"));
    const Played played = play("", [] { read_FRA_NOM_COL(); });
    EXPECT_EQ(played.ending, Ending::program_ended);
    EXPECT_NE(errors().find("There is no systematic frames (file .fra in the directory ZOLTEXE). Create them "
                            "using the program VORTANEL"),
              std::string::npos);
}

TEST_F(Choosers, MalformedFilesEndTheProgramWithTheirMessage)
{
    load_names({"Ant", "Bee"});
    const struct {
        const char *file, *text, *message;
    } cases[] = {
        {"zoltexe/FIVE.fra", "v\n((((((\n", "remplir_noeud pc2 est NULL"},
        {"zolt/data/some.nom", "Ant A\n", "has no comma:\nAnt A"},
        {"zolt/data/some.col", "10 A\n", "There is a line without comma in the file "},
    };
    for (const auto& [file, text, message] : cases) {
        const std::string before = read_file(file);
        write_file(file, text);
        forget_errors();
        EXPECT_EQ(play("", [this] { start(); }).ending, Ending::program_ended) << message;
        EXPECT_NE(errors().find(message), std::string::npos) << errors();
        write_file(file, before);
    }
}

TEST_F(Choosers, AGroupFileIsChosenOrCreated)
{
    start();
    write_file("zolt/data/other.nom", "");
    choose_nom("Down");
    EXPECT_SCREEN("group_file_list");
    EXPECT_EQ(choose_nom("Down Escape").ending, Ending::returned);
    EXPECT_EQ(result, -1);
    EXPECT_EQ(file_NOM, path("zolt/data/some.nom"));
    choose_nom("Right Down");
    EXPECT_EQ(line(3).substr(9, 7), "| other") << "nothing is cut off, so nothing moves sideways";
    choose_nom("Up Down Enter");
    EXPECT_EQ(file_NOM, path("zolt/data/other.nom"));
    choose_nom("Up Enter \"new\" Enter");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(file_NOM, path("zolt/data/new.nom"));
    EXPECT_TRUE(has_file("zolt/data/new.nom"));
    EXPECT_EQ(read_file("zolt/data/afas.ref").substr(0, 5), "FIVE\n");
    write_file("zolt/data/new.nom", "kept,A\n");
    choose_nom("Up Enter Escape Up*2 Down*2 Enter \"new.nom\" Enter"); // cancelled, then an existing name
    EXPECT_EQ(read_file("zolt/data/new.nom"), "kept,A\n");
    EXPECT_EQ(result, 0);
}

TEST_F(Choosers, LongListsScrollAndLongPathsAreRefused)
{
    for (int i = 0; i < 60; i++)
        write_file("zolt/data/g" + std::to_string(100 + i) + ".nom", "");
    const std::string room(99 - path("zolt/data/.nom").size(), 'a');
    write_file("zolt/data/" + room + ".nom", "");
    write_file("zolt/data/" + room + "a.nom", "");
    start();
    choose_nom("Down*2");
    EXPECT_EQ(line(3).substr(9, 10), "| " + room.substr(0, 8));
    EXPECT_EQ(line_of("g128"), 33);
    choose_nom("Down Right*9");
    EXPECT_EQ(line(4).substr(11, 58), std::string(58, 'a')) << "no further than the end of the longest";
    choose_nom("Up");
    EXPECT_EQ(line_of("Create->"), 33) << "the last entry has scrolled into view";
    choose_nom("Enter");
    EXPECT_EQ(file_NOM, path("zolt/data/" + room + ".nom"));
    choose_nom("Down Enter");
    EXPECT_TRUE(shows("is too long (MAXIMUM = 99)"));
    choose_nom("Down Enter Q Up Escape");
    EXPECT_EQ(result, -1);
    open({.lines = 20, .columns = 20});
    choose_nom("PgDn*3 Enter");
    EXPECT_EQ(file_NOM, path("zolt/data/g113.nom"));
}

TEST_F(Choosers, AFrameIsChosenAndConfirmed)
{
    start();
    EXPECT_EQ(nb_groupe, 10);
    const auto run = [this](const char* keys) { return play(keys, choice_frame); };
    run("Down");
    EXPECT_SCREEN("frame_list");
    run("Down Enter");
    EXPECT_EQ(line(4), "| | Systematic frame: " + path("zoltexe/TWO.fra") +
                           std::string(52 - path("zoltexe/TWO.fra").size(), ' ') + "   | |");
    EXPECT_EQ(line(5).substr(0, 28), "| | Version of 2 June       ");
    EXPECT_EQ(line(6).substr(0, 30), "| | There are 2 terminal nodes");
    EXPECT_EQ(line(8).substr(0, 33), "| | ENTER:Confirm   ESCAPE:Cancel");
    EXPECT_EQ(color_at(3, 3), 3);
    EXPECT_EQ(color_of("ENTER:Confirm"), 11);
    EXPECT_EQ(run("Down Enter Q Escape Escape").ending, Ending::returned);
    EXPECT_EQ(no_frame, 0);
    EXPECT_EQ(run("Down Enter Enter").ending, Ending::returned);
    EXPECT_EQ(no_frame, 1);
    EXPECT_EQ(nb_groupe, 4);
    EXPECT_EQ(frame_error(), "");
    EXPECT_EQ(read_file("zolt/data/afas.ref").substr(0, 4), "TWO\n");
}

TEST_F(Choosers, TheFrameListScrollsByTens)
{
    for (int i = 100; i < 210; i++) // a hundred are listed
        write_file("zoltexe/F" + std::to_string(i) + ".fra", "v\n(B:371:24:-1,A:371:8:-1)Root:3:16:-1;\n");
    start();
    EXPECT_EQ(file_frame[99], "F199");
    no_frame = 0;
    const struct {
        const char *keys, *first, *current;
    } cases[] = {
        {"Down*30", "F100", "F130"},  {"Down*31", "F110", "F131"},        {"Down*31 Up*22", "F100", "F109"},
        {"PgDn*4", "F110", "F140"},   {"PgDn*20 PgUp*4", "F159", "F159"}, {"End Down", "F169", "F199"},
        {"End Home", "F100", "F100"},
    };
    for (const auto& [keys, first, current] : cases) {
        play(keys, choice_frame);
        EXPECT_EQ(screen_line(3).substr(2, 4), first) << keys;
        EXPECT_EQ(text_in(color::yellow, 3), current) << keys;
    }
}
