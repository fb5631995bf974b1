// The species screen: what it shows, what its keys do.
#include "core/edit.h"
#include "screen/text.h"
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
        reset_taxonomy();
        std::vector<Row> rows;
        std::string groups;
        for (int i = 0; i < count; i++) {
            const std::string name = "Genus species" + std::to_string(i + 1);
            rows.push_back({.name = name + "@X" + std::to_string(i + 1)});
            groups += name + "," + "ABC"[i % 3] + "\n";
        }
        load_rows(rows);
        write_file("zoltexe/FIVE.fra", "1 May\n" + std::string(five_leaves) + "\n");
        write_file("zolt/data/five.nom", groups);
        write_file("zolt/data/five.col", "10,A\n3,B\n14,C\n5,E\n");
        read_taxonomy("FIVE", "five");
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
    // The number in the highlighted name.
    int current() const
    {
        for (int line = 3; line <= _nb_line - 2; line++)
            for (const int column : {3, 41})
                if (background_at(line, column) != 0)
                    return std::stoi(screen_line(line).substr(static_cast<std::size_t>(column) + 17));
        return 0;
    }
    int first_shown() const { return std::stoi(screen_line(3).substr(20)); }
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
    set_identifier(9, "Longissimus nominifer subspecies major@X10");
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
}

TEST_F(SpeciesList, TheViewFollowsTheCursor)
{
    load_many(100); // columns of 30
    drap_select[49] = drap_select[99] = 0;
    const struct {
        const char* keys;
        int current, first; // from 1
    } cases[] = {
        {"", 1, 1},
        {"Up", 1, 1},
        {"Right*9 Left*2", 40, 31},
        {"Down*60 Up*31", 30, 1},
        {"PgDn*9 Left*9", 1, 1},
        {"+ +", 100, 61},
        {"+ + +", 100, 61},
    };
    for (const auto& [keys, current_entry, first] : cases) {
        list(keys);
        EXPECT_EQ(current(), current_entry) << keys;
        EXPECT_EQ(first_shown(), first) << keys;
    }
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
    play_tree("F6");
    EXPECT_TRUE(shows("There are no species in Cupboard"));
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
    EXPECT_EQ(working_names(), (std::vector<std::string>{"Genus species1@X1", "Genus species7@X7"}));
    EXPECT_EQ(no_groupe[3], find_group("B"));
    EXPECT_EQ(list("F10 Down Enter F10 Down Enter", leaf("A")).ending, Ending::returned) << "none is left";
    list("F9 x Enter N F10", leaf("B"));
    EXPECT_EQ(identifier(0), "Genus species1x@X1");
    EXPECT_FALSE(shows("List of species")) << "the group is chosen after the name";

    list_all();
    list("F10 Down*2 Enter");
    EXPECT_EQ(nb_spec_gro, 9) << "what a search has found stays listed";
    EXPECT_EQ(no_groupe[0], find_group("C"));

    write_file("seq/test.inf", "[ACC] XB2\n[SYS] a; C.\n\n[ACC] XB5\n[SYS] a; E.\n");
    set_identifier(1, "Genus species2@XB2");
    set_identifier(4, "Genus species5@XB5");
    list("F8 Q Escape", leaf("B"));
    EXPECT_EQ(no_groupe[1], find_group("C"));
    list("S-F8", leaf("B"));
    EXPECT_TRUE(shows("1 species out of 4 have been automatically reaffacted"));
    EXPECT_EQ(no_groupe[4], find_group("E"));
}

TEST_F(SpeciesList, NeighboursBringTheirSpeciesIntoTheSelection)
{
    const struct {
        const char* keys; // position of the fragment, number of species
        std::vector<int> ranks;
    } cases[] = {
        {"F5 Enter BackSpace 2 Enter Escape", {3, 1, -1, 2}},
        {"F5 Enter BackSpace 0 Enter Escape", {-1, -1, -1, -1}},
        {"m F5 Enter BackSpace 1 Enter Escape", {-1, 1, -1, -1}},
        {"F6 Enter BackSpace 1 Enter Escape", {2, -1, -1, 1}}, // the list is the species 1 and 4
    };
    for (const auto& [keys, expected] : cases) {
        load_many(4);
        for (int s = 0; const char* text : {"ACGT", "ACGT", "TTTT", "ACGA"})
            overwrite(s++, 0, text);
        if (keys[1] == '6') {
            cor[1] = 3;
            nb_spec_gro = 2;
        }
        list(keys);
        EXPECT_EQ(ranks(), expected) << keys;
    }
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
    open({});
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
