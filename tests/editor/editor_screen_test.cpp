// What the editor shows, and that no key breaks it at any size of the window.
#include "editor/display.h"
#include "editor_test.h"

using namespace kq;
using test::EditorTest;

namespace {

class EditorScreenTest : public EditorTest {
public:
    // Ten species in two ensembles, with a column of gaps, ambiguity, missing ends and a character without a
    // code.
    void load_mixed()
    {
        load(
            {
                "ACGTACGT-*RYN  ACGTTGCA",
                "ACGTACGT-*RYN XACGTTGCA",
                "ACGAACGT-*RYN    GTTGCA",
                "  GTACGTC*AYN ?ACCTTGC ",
                "ACGTACGT-*RYNj ACGTTGCA",
                "UCGTACGT-*AAAA AC*TTGCA",
                "ACGTACGT-*CCCC ACGTTGCA",
            },
            {{0, 1, 2, 3}, {4, 5, 6, 2}});
    }
};

} // namespace

TEST_F(EditorScreenTest, ShowsTheAlignment)
{
    open({.lines = 20, .columns = 100});
    load_mixed();
    edit("Down Right*3");
    EXPECT_SCREEN("editor_start");
}

TEST_F(EditorScreenTest, ShowsACollapsedEnsembleAndTheConsensusLine)
{
    open({.lines = 20, .columns = 80});
    load_mixed();
    opt_consensus = 1, opt_nogap = 1;
    set_collapsed(1, true);
    compute_consensus(1);
    edit("Down*4 Right*8");
    EXPECT_SCREEN("editor_consensus");
}

TEST_F(EditorScreenTest, ShowsAProteinAlignmentScrolled)
{
    open({.lines = 20, .columns = 50});
    load({"MKVLAAGIVGLLLAQWERTYPSDFGHJKLCVNM*", "MKVLAAGIVALLLAQWERTYPSDFGH-KLCVNM*",
          "  VLA**IVGLLLAQ  RTYPSDFGH?KLCVN  "},
         {}, test::protein);
    opt_tiret = 1;
    edit("End + C-Left");
    EXPECT_SCREEN("editor_protein");
}

TEST_F(EditorScreenTest, DashesFollowTheTopRow)
{
    load_mixed();
    edit("+*2"); // the third row is the reference
    EXPECT_EQ(area(1).substr(0, 12), "ACGAACGT-RYN");
    EXPECT_EQ(area(2).substr(0, 12), "  -T----CA--") << "blanks stay";
    opt_tiret = 1;
    edit("Home");
    EXPECT_EQ(area(3).substr(0, 12), "ACGAACGT-RYN");
}

TEST_F(EditorScreenTest, CountsResiduesAndNamesTheRow)
{
    open({.lines = 20, .columns = 100});
    load_mixed();
    edit("Right*10");
    EXPECT_EQ(line(19).substr(0, 13), "    12/    11") << "a dash counts, the hidden \"*\" does not";
    edit("Down*5 Right*2");
    EXPECT_SCREEN("editor_second_ensemble");
    open({.lines = 20, .columns = 80});
    set_ensemble_name(0, "an ensemble with a long name");
    edit("Down*3");
    EXPECT_EQ(line(19).substr(29), "#Ensemble  1: an ensemble with a long #Species 4");
}

TEST_F(EditorScreenTest, AConsensusThatCatchesUpIsShownWhole)
{
    load({"A*CGTACGT*", "ACCGTACGT*"}, {{0}, {0, 1}});
    opt_tiret = opt_nogap = 1;
    // The deletion brings the cursor's ensemble up to date, the insertion all of them.
    edit("Down E Right Delete Right*5 *");
    EXPECT_EQ(area(1), "ACGTAC*GT*");
    EXPECT_EQ(std::string(seq_cons[1]), "ACGTTC*GT*");
    EXPECT_EQ(area(2), seq_cons[1]);
}

TEST_F(EditorScreenTest, DialogsLeaveNoTraces)
{
    open({.lines = 24, .columns = 100});
    load_mixed();
    edit("Right");
    const auto before = screen_dump();
    _settextwindow(1, 1, _nb_line, _nb_col); // as another screen leaves it
    for (int number = 1; number <= _nb_line; number++) {
        _settextposition(number, 1);
        _outtext(std::string(static_cast<std::size_t>(_nb_col), '#'));
    }
    edit("Right");
    EXPECT_EQ(screen_dump(), before);
    // clang-format off
    const char* const scripts[] = {
        "S-F4 N", "D N", "X Escape", "U N", "P N", "F11 Escape", "O Escape", "O Enter Escape",
        "O Down Enter ( Escape", "S-F1 N", "Escape N", "S-F9 Escape", "F3 N", "A-BackSpace Escape", "S-F8 N",
        "S-F8 Y Escape", "F1 Escape", "A-BackSpace N", "A-BackSpace Enter", "A-BackSpace Y Escape"};
    // clang-format on
    for (const auto* keys : scripts) {
        edit(std::string("Right ") + keys);
        EXPECT_EQ(screen_dump(), before) << keys;
    }
    EXPECT_FALSE(changed());
    EXPECT_FALSE(has_file("seq/test.non"));
}

TEST_F(EditorScreenTest, ASmallerWindowKeepsTheCursorInside)
{
    open({.lines = 34, .columns = 100});
    load(std::vector<std::string>(40, std::string(90, 'A')));
    edit(R"(Down*31 Right*68 S-F10 Enter BackSpace*2 "20" Enter Down Enter BackSpace*3 "40" Enter Up Enter)");
    EXPECT_EQ(_nb_line, 20);
    EXPECT_EQ(_nb_col, 40);
    EXPECT_EQ(cursor_position(), 68);
    EXPECT_EQ(ligne_curs, 18);
    EXPECT_EQ(cursor_row(), (DisplayRow{0, 31})) << "the species stays, the top row moves";
    EXPECT_EQ(view_error(), "");
    EXPECT_EQ(line(18).substr(0, 17), "Genus_f species@3");
}

// Keys at random, dialogs answered at random, at sizes down to the smallest and up to the largest.
TEST_F(EditorScreenTest, NoKeyBreaksTheEditor)
{
    const std::string_view keys =
        "Left|Right|Up|Down|Home|End|PgUp|PgDn|C-Left|C-Right|C-Up|C-Down|+|-|C|M|E|E|*|Space|*|Space|Delete|"
        "BackSpace|Tab|Delete|F11 7 Enter|F12 3 Enter|Insert Enter|S-F7 BackSpace 4 Enter|S-F3 9 Enter "
        "Q|S-F4 Y|"
        "U Y|X Y Enter|X Y Down Enter|P Y|D Y|A-BackSpace Y Enter|A-BackSpace Y Up Enter|"
        "S-F8 Y \"AC*-\" BackSpace Delete Right Escape N N|S-F8 Y End \"GGG\" Escape N N|"
        "F4 Down Enter|F6 Enter|F6 Up Enter|F6 Escape N N|T Down Enter|T Escape N N|B|"
        "S-F9 N Enter \"ACGT*\" Enter|S-F12|F5|O Enter F2|O Down Enter ( C-Right ) Down Enter|O Down*2 Enter "
        "( End ) Enter Enter|O Down Enter ( Up ) Down*2 Enter|R Y|L Y|F2 Y Escape N N|F12 Y|Escape N N|"
        "F2 Enter Home F2 F3 Escape N N|F10 Q|F10 b Enter|F3 Y F2 F3 Escape N N|S-F1 N N|F1 "
        "Escape|A-KPPlus|A-KPMinus|/ PgDn ,|; .|, ,|A|S Enter Enter ,|S Down*2 Enter Enter Enter Escape|"
        "S Down*4 Enter Enter PgDn Q|F8 Down Enter Down Enter Escape|F8 Down*5 Enter Down*2 A C ? F5 Escape";
    const test::Geometry sizes[] = {{20, 20}, {20, 29}, {20, 31}, {21, 37}, {34, 80}, {200, 200}};
    for (unsigned round = 0; round < 24; round++) {
        std::mt19937 random(round);
        open(sizes[round % std::size(sizes)]);
        std::vector<std::string> rows;
        const auto columns = 1 + random() % 70;
        for (auto count = 1 + random() % 40; count > 0; count--) {
            std::string text;
            for (auto length = random() % (columns + 1); length > 0; length--)
                text += "ACGTUN**-  ?Xjr"[random() % 15];
            rows.push_back(text);
        }
        rows.push_back(std::string(columns, 'A'));
        std::vector<std::vector<int>> ensembles(1 + random() % 4);
        const auto filled = round % 4 == 0 ? 1 : ensembles.size(); // the others stay empty
        for (int i = 0; i < std::ssize(rows); i++)
            ensembles[ensembles.size() - 1 - random() % filled].push_back(i);
        load(rows, ensembles, static_cast<int>(random() % 2));
        for (int e = 0; e < nb_ens; e++) {
            set_collapsed(e, random() % 2);
            compute_consensus(e);
        }
        read_frame_of_three_groups();
        opt_consensus = static_cast<int>(random() % 3);
        opt_nogap = static_cast<int>(random() % 2);
        opt_tiret = static_cast<int>(random() % 2);

        const std::string script = test::random_keys(random, keys, 100);
        const auto played = play(script, [] {
            enter();
            affich_menu_affich_seq();
            do
                ASSERT_EQ(model_error(), "");
            while (gere_affich_seq() == 0);
        });
        ASSERT_FALSE(HasFailure()) << "round " << round << ": " << script;
        EXPECT_EQ(played.keys_left, 0) << "round " << round << " has left the editor too early";
    }
}
