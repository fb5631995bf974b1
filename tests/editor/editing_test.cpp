// The editing commands, played as keys, judged by the rows they leave.
#include "editor/editing.h"
#include "editor_test.h"

using namespace kq;
using test::EditorTest;

namespace {

using Rows_ = std::vector<std::string>;

struct Case {
    const char* what;
    Rows_ before;
    const char* keys;
    Rows_ after;
    bool is_changed = true;
};

class EditingTest : public EditorTest {
public:
    void play_cases(std::span<const Case> cases)
    {
        for (const auto& c : cases) {
            load(c.before);
            EXPECT_EQ(edit(c.keys).ending, test::Ending::script_ended) << c.what;
            EXPECT_EQ(sequences(), c.after) << c.what;
            EXPECT_EQ(changed(), c.is_changed) << c.what;
            EXPECT_EQ(model_error(), "") << c.what;
        }
    }
};

} // namespace

TEST_F(EditingTest, KeysOnASingleRow)
{
    const Case cases[] = {
        {"a gap goes in, one at the end is dropped", {"ACGT**", "ACGTAC"}, "Right *", {"A*CGT*", "ACGTAC"}},
        {"a blank likewise", {"ACGT  ", "ACGTAC"}, "Right Space", {"A CGT ", "ACGTAC"}},
        {"a residue at the end makes all rows longer", {"ACGT", "AC*T"}, "Right *", {"A*CGT", "AC*T "}},
        {"a dash at the end is a residue", {"ACG-", "ACGT"}, "*", {"*ACG-", "ACGT "}},
        {"many", {"AC**", "ACGT"}, "Right F11 5 Enter", {"A***************C", "ACGT             "}},
        {"many behind the last residue", {"AC**", "ACGT"}, "Right*2 F12 BackSpace 9 Enter", {"AC  ", "ACGT"}},
        {"none", {"ACGT"}, "F11 BackSpace 0 Enter", {"ACGT"}, false},
        {"given up", {"ACGT"}, "F11 Escape", {"ACGT"}, false},
        {"a gap is deleted under the cursor", {"A*CG", "ACGT"}, "Right Delete", {"ACG ", "ACGT"}},
        {"no residue ever is", {"A-CG", "ACGT"}, "Right Delete Delete", {"A-CG", "ACGT"}},
        {"the gap before the cursor", {"A*CG", "ACGT"}, "Right*2 BackSpace", {"ACG ", "ACGT"}},
        {"Tab takes gaps up to a residue", {"A** C", "ACGTA"}, "Right Tab", {"AC   ", "ACGTA"}},
        {"Tab to the end", {"A**", "ACG"}, "Right Tab", {"A  ", "ACG"}},
        {"gaps left", {"*A*C*GT", "ACGTACG"}, "Right*5 S-F3 2 BackSpace*2 2 Enter", {"*ACGT  ", "ACGTACG"}},
        {"gaps right of the cursor", {"A*C*G T", "ACGTACG"}, "Right*2 S-F4 Y", {"A*CGT  ", "ACGTACG"}},
        {"not without a yes", {"A*C*G", "ACGTA"}, "S-F4 Enter", {"A*C*G", "ACGTA"}, false},
        {"all gaps", {"*A*C- G*", "ACGTACGT"}, "Right*4 U Y", {"AC-G    ", "ACGTACGT"}},
        {"shortened on the right", {"ACGTACGT", "ACGTACGT"}, "Right*2 X Y Enter", {"ACXXX   ", "ACGTACGT"}},
        {"too near to the end", {"ACGTACGT"}, "Right*5 X Y Enter", {"ACGTACGT"}, false},
        {"just far enough", {"ACGTACGT"}, "Right*4 X Y Enter", {"ACGTXXX "}},
        {"on the left", {"ACGTACGT", "ACGTACGT"}, "Right*5 X Y Down Enter", {"  XXXCGT", "ACGTACGT"}},
        {"too near to the start", {"ACGTACGT"}, "Right*3 X Y Down Enter", {"ACGTACGT"}, false},
        // Deliberate: a sequence made partial is not marked changed.
        {"partial", {"**-A*C-*", "ACGTACGT"}, "P Y", {"   A*C  ", "ACGTACGT"}, false},
        {"partial without any residue", {"*-*", "ACG"}, "P Y", {"*-*", "ACG"}, false},
    };
    play_cases(cases);
}

TEST_F(EditingTest, ARefusedBackspaceLeavesTheCursor)
{
    for (const auto& [keys, position] : {std::pair{"Right*2 BackSpace", 2}, {"BackSpace", 0}}) {
        load({"AC*T", "ACGT"});
        edit(keys);
        EXPECT_EQ(cursor_position(), position) << keys;
        EXPECT_EQ(sequence(0), "AC*T");
    }
}

TEST_F(EditingTest, OpeningColumnsKeepsTheCursorsRowInPlace)
{
    const Case cases[] = {
        {"several", {"ACGT", "ACGT"}, "Right*2 S-F7 BackSpace 3 Enter", {"ACGT   ", "AC***GT"}},
        {"inside missing sequence", {"ACGTA", "A   A"}, "Right*2 Insert Enter", {"ACGTA ", "A    A"}},
    };
    play_cases(cases);
}

TEST_F(EditingTest, ACollapsedEnsembleIsEditedAsOne)
{
    const auto collapse = [&](const Rows_& rows) {
        load(rows, {{0, 1}, {2}});
        set_collapsed(0, true);
        compute_consensus(0);
    };
    collapse({"AC*T*", "ACGT*", "ACGTA"});
    edit("Right *");
    EXPECT_EQ(sequences(), (Rows_{"A*C*T", "A*CGT", "ACGTA"}));
    collapse({"AC*T*", "ACGTA", "ACGTA"});
    edit("Right *");
    EXPECT_EQ(sequences(), (Rows_{"A*C*T*", "A*CGTA", "ACGTA "})) << "one residue at an end is enough";
    collapse({"A**T", "A*GT", "ACGT"});
    edit("Right Delete Delete");
    EXPECT_EQ(sequences(), (Rows_{"A*T ", "AGT ", "ACGT"})) << "every member needs a gap";
    collapse({"ACGT", "AC T", "ACGT"});
    edit("Right*2 Insert Enter");
    EXPECT_EQ(sequences(), (Rows_{"ACGT ", "AC T ", "AC*GT"}));

    for (const char* keys : {"S-F3", "S-F4", "U", "X", "P", "D", "A-BackSpace"}) {
        collapse({"A*GT", "A*GT", "ACGT"});
        edit(keys);
        EXPECT_TRUE(shows("Change the type of display of the ensemble n1 before")) << keys;
        EXPECT_EQ(sequences(), (Rows_{"A*GT", "A*GT", "ACGT"})) << keys;
    }
    EXPECT_FALSE(shows("Do you really want"));
    edit("S-F8");
    EXPECT_FALSE(shows("Do you really want to modify this primary sequence?")) << "refused without a word";
}

TEST_F(EditingTest, TheAlignmentDoesNotGrowPastItsLimits)
{
    // One row of the longest length: a row more in columns could not be read back.
    load({std::string(max_alignment, 'A')});
    edit("Right * Q");
    EXPECT_EQ(sequence(0), std::string(max_alignment, 'A'));
    edit("Insert Enter");
    EXPECT_TRUE(shows("The sequences are too long (see DOC)"));

    load({std::string(max_alignment - 3, 'A')});
    edit("F11 5 Enter"); // 15 are asked for, 3 can be had
    EXPECT_EQ(sequence(0), "***" + std::string(max_alignment - 3, 'A'));
    EXPECT_TRUE(shows("The sequences are too long (see DOC)"));
}

// The commands that do many steps at once leave what the single steps would.
TEST_F(EditingTest, ManyAtOnceIsAsOneByOne)
{
    std::mt19937 random(20240607);
    for (int round = 0; round < 300; round++) {
        Rows_ rows;
        const int columns = 1 + static_cast<int>(random() % 12);
        for (int i = 0; i < 4; i++) {
            std::string text;
            for (int p = 0; p < columns; p++)
                text += "AC** "[random() % 5];
            rows.push_back(text);
        }
        rows.push_back(std::string(static_cast<std::size_t>(columns), 'G')); // no column is hidden
        const bool is_collapsed = random() % 2;
        const int steps = 1 + static_cast<int>(random() % 9);
        const int position = static_cast<int>(random() % static_cast<unsigned>(columns));
        const bool insert = random() % 2;
        std::vector<Rows_> results;
        for (const bool at_once : {false, true}) {
            load(rows, {{0, 1}, {2, 3, 4}});
            set_collapsed(0, is_collapsed);
            enter();
            deplace_site_droite(position);
            ASSERT_EQ(cursor_position(), position);
            if (insert && at_once)
                add_chars('*', steps);
            else if (insert)
                for (int i = 0; i < steps; i++)
                    add_char('*');
            else if (at_once)
                suppr_all_chars();
            else
                for (int i = 0; i < nb_nuc_tot && suppr_char() == 0; i++) {
                }
            results.push_back(sequences());
        }
        ASSERT_EQ(results[0], results[1]) << "round " << round << " steps " << steps << " at " << position;
    }
}

TEST_F(EditingTest, APrimarySequenceIsTyped)
{
    const Case cases[] = {
        {"typed in, the row grows", {"ACGT", "ACGT"}, R"(S-F8 Y Right "TG" Escape)", {"ATGCGT", "ACGT"}},
        {"deleted", {"ACGT", "ACGT"}, "S-Insert Y Right*2 BackSpace Delete Escape", {"AT", "ACGT"}},
        {"foreign letters and small ones", {"ACGT"}, R"(S-F8 Y "acgte?1Q" Escape)", {"ACGT"}, false},
        {"not without a yes", {"ACGT"}, R"(S-F8 N "TTT")", {"ACGT"}, false},
        {"beyond the row's text", {"ACGT", "ACGTACGT"}, "S-F8 Y End T Escape", {"ACGT   T ", "ACGTACGT"}},
        {"behind a gap that hides its column", {"ACGT"}, R"(S-F8 Y Right "*A" Escape)", {"A*ACGT"}},
        {"nothing to delete there", {"AC  ", "ACGT"}, "S-F8 Y Delete*4 Escape", {"", "ACGT"}},
        // Text beyond the alignment's last column is the row's own, and closes up with the rest into sight.
        {"all gaps beyond", {"A*GT", "ACGT"}, R"(S-F8 Y End "CC" Escape End U Y)", {"AGCCT", "ACGT"}},
        {"gaps left", {"A*GT", "ACGT"}, R"(S-F8 Y End "CC" Escape End S-F3 Enter)", {"AGCCT", "ACGT"}},
        {"gaps right", {"A*GT", "ACGT"}, R"(S-F8 Y End "CC" Escape Home S-F4 Y)", {"AGCCT", "ACGT"}},
        {"partial", {"A*GT", "ACGT"}, R"(S-F8 Y End "CC" Escape P Y)", {"A*GCCT", "ACGT"}},
        {"one", {"A*GT", "ACGT"}, R"(S-F8 Y End "CC" Escape Home Right*2 BackSpace)", {"AGCCT", "ACGT"}},
    };
    play_cases(cases);
}

TEST_F(EditingTest, RowsOfOtherLengthsStayWhole)
{
    load({"ACGT", "ACGT"});
    edit(R"(S-F8 Y End "CC" Escape Home *)"); // two residues beyond the alignment, then a gap before all
    EXPECT_EQ(sequence(0).substr(0, 1), "*");
    std::string residues = sequence(0);
    std::erase_if(residues, [](char c) { return c == '*' || c == ' '; });
    EXPECT_EQ(residues, "ACGCCT");
    edit("X Y Enter"); // shortened on the right, the text beyond goes too
    EXPECT_EQ(sequence(0), "XXX" + std::string(static_cast<std::size_t>(nb_nuc_tot) - 3, ' '));
    EXPECT_EQ(model_error(), "");
}
