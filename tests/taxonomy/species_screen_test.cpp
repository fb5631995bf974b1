// The species screen: what it shows, what its keys do.
#include "core/edit.h"
#include "taxonomy/group_moves.h"
#include "taxonomy/species_screen.h"
#include "tree_fixture.h"

#include <numeric>

using namespace kq;
using namespace kq::test;

namespace {

class SpeciesList : public TreeTest {
public:
    // Species in the groups A, B, C in turn; the list is all of them, or those of A.
    void load_many(int count)
    {
        TreeTest::load_many(count, [](int i) { return std::string(1, "ABC"[i % 3]); });
        drap_select.fill(-1);
        list_all();
    }
    static void list_all()
    {
        std::iota(cor.begin(), cor.begin() + nb_spec, 0);
        nb_spec_gro = nb_spec;
    }
    Played list(std::string_view keys, int group = list_without_group)
    {
        return play(keys, [group] { choice_specie(group); });
    }
    static std::vector<int> ranks() { return {retenu.begin(), retenu.begin() + nb_spec}; }
};

} // namespace

TEST_F(SpeciesList, LooksLikeThis)
{
    load_many(70);
    new_est[4] = -1;
    mask[5] = -1;
    destroy[6] = 1;
    drap_select[7] = 0;
    pc_len[8] = 7;
    set_identifier(9, "Longissimus nominifer subspecies major@X");
    list("Enter Down Enter Down*5");
    EXPECT_SCREEN("species_list");
    for (const auto& [geometry, golden] : {std::pair{Geometry{.lines = 40, .columns = 120}, "species_wide"},
                                           std::pair{Geometry{.lines = 20, .columns = 20}, "species_tiny"}}) {
        open(geometry);
        list("Right*2", 1);
        EXPECT_SCREEN(golden);
    }
    open({});
    list("", 0);
    EXPECT_TRUE(shows("List of species with specific characters")) << "not for the first group";
    load_many(100);
    drap_select[49] = drap_select[99] = 0;
    list("+*2 Enter");
    EXPECT_EQ(retenu[99], 1) << "the second one of another ensemble";
    EXPECT_TRUE(shows("species61@X") && !shows("species60@X")) << "stands in the second column";
}

TEST_F(SpeciesList, SelectingKeepsRanksWithoutHoles)
{
    load_many(8);
    list("Enter*5 Escape");
    EXPECT_EQ(ranks(), (std::vector{1, 2, 3, 4, 5, -1, -1, -1}));
    list("Down*2 Enter Escape");
    EXPECT_EQ(ranks(), (std::vector{1, 2, -1, 3, 4, -1, -1, -1}));
    EXPECT_TRUE(shows("   3 Genus species4")) << "the ranks on the screen are the new ones";
    list("m Down*7 m Up Enter Enter Escape");
    EXPECT_EQ(ranks(), (std::vector{-1, 1, -1, 2, 3, -1, 4, -1})) << "a masked species is not selected";
    EXPECT_EQ(mask[0] + mask[7], -2);
    EXPECT_EQ(modif, 0);

    list("m Escape");
    drap_select[0] = 0;
    list("S-F2");
    EXPECT_EQ(ranks(), (std::vector{-1, 1, 5, 2, 3, 6, 4, -1}));
    list("F2");
    EXPECT_EQ(ranks(), (std::vector{7, 1, 5, 2, 3, 6, 4, -1}));
    list("Down S-F12");
    EXPECT_EQ(ranks(), (std::vector{1, -1, -1, -1, -1, -1, -1, -1}));
    load_many(150);
    EXPECT_EQ(list("PgDn S-F12").ending, Ending::returned);
    EXPECT_EQ(std::pair(retenu[10], retenu[109]), std::pair(1, 100));
    EXPECT_EQ(nb_retenu, 100);
}

TEST_F(SpeciesList, ADeletedSpeciesLosesItsRank)
{
    load_many(5);
    file_ALI = "test.ali";
    list("Enter*3 Up*2 A-BackSpace Y Down Enter Escape");
    EXPECT_EQ(ranks(), (std::vector{1, -1, 2, -1, -1}));
    EXPECT_TRUE(destroy[1]);
    EXPECT_TRUE(shows("del  Genus species2"));
    const std::string rejects = read_file("seq/test.non");
    EXPECT_EQ(list("Down A-BackSpace Escape").ending, Ending::returned) << "nothing is asked a second time";
    EXPECT_EQ(read_file("seq/test.non"), rejects);
}

TEST_F(SpeciesList, OpensFromTheTree)
{
    load_five_leaves();
    EXPECT_EQ(play_tree("Home Enter F2 F3 Enter").ending, Ending::returned);
    EXPECT_EQ(nb_spec_ens[0], 5);
    play_tree("Home Up*2 Enter");
    EXPECT_TRUE(shows("List of species in group A"));
    play_tree("Home Down*2 Up Right Down Enter"); // in the subtree
    EXPECT_TRUE(shows("There are no species in D"));
    move_species_to_group(1, 0, cupboard());
    play_tree("F6");
    EXPECT_TRUE(shows("List of species in group Cupboard"));
}

TEST_F(SpeciesList, MovesBetweenGroupsChangeTheList)
{
    // The list and the group of a leaf.
    const auto leaf = [](const char* name) {
        pcour = node_named(name);
        collect_species_below(*pcour);
        return pcour->no;
    };
    load_many(9); // A: 1, 4, 7; B: 2, 5, 8
    file_ALI = "test.ali";
    list("Down F10 Down Enter", leaf("A"));
    EXPECT_EQ(working_names(), (std::vector<std::string>{"Genus species1@X", "Genus species7@X"}));
    EXPECT_EQ(no_groupe[3], find_group("B"));
    EXPECT_EQ(list("F10 Down Enter F10 Down Enter", leaf("A")).ending, Ending::returned) << "none is left";
    list("F9 x Enter N F10", leaf("B"));
    EXPECT_EQ(identifier(0), "Genus species1x@X");
    EXPECT_FALSE(shows("List of species")) << "the group is chosen after the name";

    list_all();
    list("F10 Down*2 Enter");
    EXPECT_EQ(nb_spec_gro, 9) << "what a search has found stays listed";
    EXPECT_EQ(no_groupe[0], find_group("C"));

    write_file("seq/test.inf", "[ACC] YB2\n[SYS] a; C.\n\n[ACC] YB5\n[SYS] a; E.\n");
    set_identifier(1, "Genus species2@YB2");
    set_identifier(4, "Genus species5@YB5");
    list("F8 Q Escape", leaf("B"));
    EXPECT_EQ(no_groupe[1], find_group("C"));
    list("S-F8", leaf("B"));
    EXPECT_TRUE(shows("1 species out of 4 have been automatically reaffacted"));
    EXPECT_EQ(no_groupe[4], find_group("E"));
}

TEST_F(SpeciesList, NeighboursBringTheirSpeciesIntoTheSelection)
{
    load_many(4);
    for (int s = 0; const char* text : {"ACGT", "ACGT", "TTTT", "ACGA"})
        overwrite(s++, 0, text);
    list("F5 Enter BackSpace 2 Enter Escape"); // position of the fragment, number of species
    EXPECT_EQ(ranks(), (std::vector{3, 1, -1, 2}));
    clear_selection();
    cor[1] = 3;
    nb_spec_gro = 2;
    list("m F6 Enter BackSpace 1 Enter Escape");
    EXPECT_EQ(ranks(), (std::vector{-1, -1, -1, 1})) << "of the list, and not the masked one";
}

TEST_F(SpeciesList, EveryStepLeavesTheScreenAsAWholeRedrawWould)
{
    std::mt19937 random(3);
    for (const Geometry& geometry : {Geometry{}, Geometry{.lines = 20, .columns = 44}}) {
        open(geometry);
        for (int round = 0; round < 40; round++) {
            const std::string keys =
                random_keys(random, "Up|Down*7|PgDn|Left|Right|Right*2|+|Enter|Enter|m", 20);
            load_many(100);
            drap_select[70] = 0;
            list(keys);
            const std::string stepwise = screen_dump();
            load_many(100);
            drap_select[70] = 0;
            list(keys + " F1 Escape");
            EXPECT_TRUE(stepwise == screen_dump()) << keys;
        }
    }
}

// Whatever is done, ranks and counts are those of a recount.
TEST_F(SpeciesList, CountersStayExact)
{
    std::mt19937 random(2026);
    const auto pick = [&random](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
    const std::string_view pieces =
        "Enter|Enter*4|m|+|S-F12|F2|S-F2|F10 Down*3 Enter|F10 PgDn*2 Enter|F10 Escape|F9 z Enter Y Escape|"
        "F9 z Enter N Down*5 Enter|A-BackSpace Y Enter|A-BackSpace Y Down*8 Enter|F8 Q|? F8 Q|? Q|S-F8 Q Q|"
        "F5 Enter Enter|F6 Enter BackSpace 7 Enter";
    for (const DataSet& set : {proteases, ssu_small}) {
        reset_taxonomy();
        load(set);
        file_ALI = set.alignment + ".ali";
        write_file("seq/" + set.alignment + ".inf",
                   read_bytes(KQ_SOURCE_DIRECTORY "/demo/ZOLT/seq/" + set.alignment + ".inf"));
        for (int s = 0; s < nb_spec; s++)
            drap_select[static_cast<std::size_t>(s)] = pick(3) ? -1 : 0;
        for (int step = 0; step < 120; step++) {
            if (step == 60) open({.lines = 20, .columns = 20});
            int group = list_without_group;
            pcour = proot;
            for (int depth = pick(8); depth > 0 && !pcour->leaf(); depth--)
                pcour = pick(2) ? pcour->child1 : pcour->child2;
            switch (pick(4)) {
            case 0:
                list_all();
                break;
            case 1:
                list_species_of_group(group = cupboard());
                break;
            default:
                collect_species_below(*pcour);
                group = pcour->no;
            }
            const std::string keys = "Right*" + std::to_string(1 + pick(5)) + " Down*" +
                                     std::to_string(1 + pick(30)) + " " +
                                     random_keys(random, pieces, 1 + pick(3));
            SCOPED_TRACE(set.alignment + ", step " + std::to_string(step) + ": " + keys);
            list(keys, group);
            ASSERT_EQ(selection_error() + store_error() + frame_error(), "");
        }
        EXPECT_GT(nb_retenu, 0);
        open({});
    }
}
