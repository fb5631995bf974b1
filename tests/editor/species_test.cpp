// Species go out of the alignment, out of ensembles, and come in.
#include "editor_test.h"

using namespace kq;
using test::EditorTest;

namespace {

using SpeciesTest = EditorTest;

} // namespace

TEST_F(SpeciesTest, ADeletedSpeciesIsKeptInTheRejectsFile)
{
    load({"AC*-T ", "CCCC  ", "GGGGGG"}, {{0, 1, 2}, {1, 2}});
    EXPECT_EQ(edit("A-BackSpace Y Down Enter").ending, test::Ending::script_ended);
    const std::string rejected = "#Molecule\n#Domain\n#Partial sequence\n>Genus_a species@1\nAC-T\n";
    EXPECT_EQ(read_file("seq/test.non"), rejected);
    EXPECT_TRUE(destroy[0]);
    EXPECT_TRUE(changed());
    EXPECT_EQ(ensemble(0), (std::vector{1, 2}));
    EXPECT_EQ(nb_spec, 3);
    EXPECT_EQ(model_error(), "") << "deleted";

    edit("A-BackSpace Y Up Enter"); // the last reason: without the file
    EXPECT_EQ(read_file("seq/test.non"), rejected);
    EXPECT_EQ(ensemble(0), std::vector{2});
    EXPECT_EQ(ensemble(1), (std::vector{1, 2})) << "other ensembles keep it";

    edit("Down*2 A-BackSpace Y Enter"); // of the second ensemble
    EXPECT_EQ(read_file("seq/test.non"), rejected + "#Sequencing errors with redondancy\n>Genus_c species@3\n"
                                                    "GGGGGG\n");
    EXPECT_EQ(model_error(), "") << "third";
}

TEST_F(SpeciesTest, ARejectsFileThatCannotBeWrittenKeepsTheSpecies)
{
    load({"ACGT", "ACGT"});
    ASSERT_EQ(std::system(("mkfifo " + path("seq/test.non")).c_str()), 0);
    edit("A-BackSpace Y Enter");
    EXPECT_TRUE(shows("The sequence is kept: ")) << "and nobody waits for the other end of the pipe";
    EXPECT_FALSE(destroy[0]);
    ASSERT_EQ(std::system(("rm " + path("seq/test.non") + " && mkdir " + path("seq/test.non")).c_str()), 0);
    edit("A-BackSpace Y Enter");
    EXPECT_TRUE(shows("The sequence is kept: "));
    EXPECT_FALSE(destroy[0]);
    EXPECT_EQ(ensemble(0), (std::vector{0, 1}));
}

TEST_F(SpeciesTest, TheLastRowOnDisplayIsNeverTakenAway)
{
    load({"ACGT", "ACGT"}, {{0}});
    edit("A-BackSpace");
    EXPECT_TRUE(shows("The ensemble n1 contains only 1 species"));
    edit("A-BackSpace Q Y Enter");
    EXPECT_EQ(ensemble(0), std::vector{0});
    edit("D");
    EXPECT_TRUE(shows("The ensemble n1 contains only 1 species (use F6)"));

    load({"ACGT", "ACGT"}, {{0}, {1}});
    edit("A-BackSpace Q Y Enter"); // the warning, and on
    EXPECT_EQ(ensemble(0), std::vector<int>());
    EXPECT_EQ(cursor_row(), (DisplayRow{1, 0}));
    EXPECT_EQ(model_error(), "") << "an empty ensemble";
}

TEST_F(SpeciesTest, CursorAndTopRowFindNewPlaces)
{
    const struct {
        const char *what, *keys;
        std::vector<int> left;
        int top, cursor, row;
    } cases[] = {
        {"in the middle: the next one comes up", "Down D Y", {0, 2, 3, 4}, 0, 1, 2},
        {"the top row", "D Y", {1, 2, 3, 4}, 0, 0, 1},
        {"the last of the ensemble: one row up", "Down*4 D Y", {0, 1, 2, 3}, 0, 3, 4},
        {"above the top row of a list gone round", "+*2 Down*3 D Y", {1, 2, 3, 4}, 1, 0, 4},
        {"the last one at the top of the screen: from the beginning", "+*4 D Y", {0, 1, 2, 3}, 0, 0, 1},
        {"the last screen row of a list gone round", "+*2 Down*4 D Y", {0, 2, 3, 4}, 2, 1, 4},
        {"not without a yes", "Down D N", {0, 1, 2, 3, 4}, 0, 1, 2},
    };
    for (const auto& c : cases) {
        load(std::vector<std::string>(5, "ACGT"));
        edit(c.keys);
        EXPECT_EQ(ensemble(0), c.left) << c.what;
        EXPECT_EQ(top_row(), (DisplayRow{0, c.top})) << c.what;
        EXPECT_EQ(cursor_row(), (DisplayRow{0, c.cursor})) << c.what;
        EXPECT_EQ(ligne_curs, c.row) << c.what;
        EXPECT_FALSE(changed()) << c.what;
        EXPECT_EQ(model_error(), "") << c.what;
    }
}

TEST_F(SpeciesTest, AnEnsembleCollapsesAndExpands)
{
    load({"ACGT", "ACGA", "GGGG"}, {{0, 1}, {2}});
    edit("Down E");
    EXPECT_TRUE(collapsed(0));
    EXPECT_EQ(nb_spec_affich, 2);
    EXPECT_EQ(line(1).substr(0, 14), " 1: ensemble A");
    EXPECT_EQ(std::string(seq_cons[0]), "ACGT"); // T before A: the lower code wins
    EXPECT_EQ(cursor_row(), (DisplayRow{0, 0}));
    EXPECT_EQ(model_error(), "") << "collapsed";
    edit("Down E E E E"); // the other one too, then the first one, there and back
    EXPECT_TRUE(collapsed(1));
    EXPECT_FALSE(collapsed(0));
    EXPECT_EQ(nb_spec_affich, 3);
    EXPECT_EQ(model_error(), "") << "expanded";
}

TEST_F(SpeciesTest, ASpeciesIsLookedAtAndRenamed)
{
    file_NOM = path("zolt/data/test.nom");
    write_file("zolt/data/test.nom", "");
    load({"ACGT", "CCCC"}, {{0, 1}, {1}});
    nbtot_groupe[0][0] = nb_spec;
    edit("Down ?");
    EXPECT_TRUE(shows("This species is Genus_b species@2 (Cupboard)"));
    edit("Down ? Q");
    const std::string after_box = screen_dump();
    edit("Down");
    EXPECT_TRUE(screen_dump() == after_box);

    edit("Down F9 x Enter Y");
    EXPECT_EQ(identifier(1), "Genus_b speciesx@2");
    EXPECT_EQ(read_file("zolt/data/test.nom"), "Genus_b speciesx , Cupboard\n");
    EXPECT_TRUE(changed());
    EXPECT_TRUE(shows("Genus_b speciesx@2"));
    edit("E ?");
    EXPECT_TRUE(shows("Change the type of display of the ensemble n1 before"));
    file_NOM.clear();
}

TEST_F(SpeciesTest, ASpeciesMovesToAnotherGroup)
{
    load({"ACGT", "ACGT", "ACGT"});
    read_frame_of_three_groups();
    std::string groups = read_file("zolt/data/three.nom");
    cor[0] = 2; // of an earlier list
    nb_spec_gro = 1;
    edit("Down F10 b Enter");
    EXPECT_EQ(read_file("zolt/data/three.nom"), groups.replace(groups.find("_b species,A") + 10, 2, " , B"));
    EXPECT_EQ(group_name(no_groupe[1]), "B");
    EXPECT_EQ(group_name(no_groupe[0]), "A");
    EXPECT_EQ(color_of("Genus_b"), 3) << "the screen is drawn again";
    EXPECT_EQ(selection_error(), "");
    edit("F10 Escape");
    EXPECT_EQ(group_name(no_groupe[0]), "A");
    set_collapsed(0, true);
    edit("F10");
    EXPECT_TRUE(shows("Change the type of display of the ensemble n1 before"));
}

TEST_F(SpeciesTest, ASequenceIsAdded)
{
    load({"ACGTACGTAC", "ACGTAC"});
    EXPECT_EQ(edit(R"(Down + S-F9 Enter "Homo sapiens" Enter Enter "ac-g$?n*t" Enter)").ending,
              test::Ending::script_ended);
    ASSERT_EQ(nb_spec, 3);
    EXPECT_EQ(identifier(2), "Homo sapiens@");
    EXPECT_EQ(sequence(2), "ACGN*T");
    EXPECT_EQ(pc_len[2], 60);
    EXPECT_EQ(ensemble(0), (std::vector{0, 1, 2}));
    EXPECT_EQ(top_row(), (DisplayRow{0, 0}));
    EXPECT_EQ(cursor_row(), (DisplayRow{0, 0}));
    EXPECT_EQ(nbtot_groupe[0][0], 1);
    EXPECT_EQ(nbret_groupe[0][0], 1);
    EXPECT_TRUE(changed());
    EXPECT_EQ(model_error(), "") << "added";
    edit(R"(C-Insert Q Down "AC" Up BackSpace M Enter Down)");
    EXPECT_EQ(identifier(3), "M@");
    EXPECT_EQ(sequence(3), "AC") << "the row's text ends at its own length";
    edit("S-F9 Q Enter \"123\" Enter");
    EXPECT_TRUE(line(9).starts_with("+- A sequence is needed -"));
    edit("S-F9 \"Q#NEW#\" Enter");
    EXPECT_TRUE(line(9).starts_with("+- No #NEW# #MASKED# -")) << "such a name is cut when it is read";
    edit("S-F9 Q Enter A Escape");
    EXPECT_EQ(nb_spec, 4);
    EXPECT_EQ(model_error(), "") << "shorter";
    edit(R"(S-F9 N Enter "ac-g$?n*t" Up)");
    EXPECT_EQ(line(8), "| ACGN*T" + std::string(71, ' ') + "|") << "only what counts is left on the screen";
}
