// The tree screen, played as a user plays it.
#include "core/edit.h"
#include "taxonomy/partial_selection.h"
#include "taxonomy/tree_screen.h"
#include "tree_fixture.h"

#include <regex>

using namespace kq;
using namespace kq::test;

namespace {

class Tree : public TreeTest {
public:
    // The place of every node; screens put back what they move.
    static std::vector<int> positions()
    {
        std::vector<int> numbers;
        for (const char* name : {"Root", "Low", "E", "Sub", "D", "C", "High", "B", "A"})
            numbers.insert(numbers.end(), {node_named(name)->y, node_named(name)->sub});
        return numbers;
    }
    void expect_sound()
    {
        EXPECT_EQ(selection_error(), "");
        EXPECT_EQ(frame_error(), "");
    }
};

} // namespace

TEST_F(Tree, ShowsGroupsWithTheirCounts)
{
    load_five_leaves();
    play_tree("");
    EXPECT_SCREEN("tree_start");
    play_tree("F2 Up"); // all but the masked one; then the highest node under the root
    EXPECT_SCREEN("tree_selected");
}

TEST_F(Tree, KeysLeadToTheirNodes)
{
    load_five_leaves();
    const struct {
        const char *keys, *status;
    } cases[] = {
        {"", "Node: Root"},
        {"Up", "Node: High"},
        {"Up Up", "Leaf: A"},
        {"Down", "Node: Low"},
        {"Up Up Down", "Leaf: B"},
        {"Up Up Up", "Leaf: E"},
        {"Up Up PgDn", "Leaf: A"},
        {"Up Up PgUp PgUp", "Leaf: A"},
        {"Up Up Down Down", "Leaf: Sub"},
        {"Up Up Down Left", "Node: High"},
        {"Up Up Down Left Left Left Left", "Node: Root"},
        {"Up Up Home", "Node: Root"},
        {"Up Right", "Node: High"},
        {"Up Up Down Down Right", "Node: Sub"},
        {"Up Up Down Down Right Up", "Leaf: C"},
        {"Up Up Down Down Right Up Up", "Leaf: D"},
        {"Up Up Down Down Right Down Left", "Node: Sub"},
        {"Up Up Down Down Right Home Left", "Leaf: Sub"},
        {"Up Up Down Down Right Home Left Down", "Leaf: E"},
    };
    const auto places = positions();
    for (const auto& [keys, status] : cases) {
        play_tree(keys);
        EXPECT_EQ(line(2).substr(0, std::string(status).size()), status) << keys;
        EXPECT_EQ(positions(), places) << keys;
    }
}

TEST_F(Tree, ASubtreeHasAViewOfItsOwn)
{
    load_five_leaves();
    play_tree("Up Up Down Down F2 Right");
    EXPECT_SCREEN("tree_subtree");
    play_tree("Up Up Down Down Right F2 Left"); // back: collapsed, with the sums of its subtree
    EXPECT_SCREEN("tree_back_from_subtree");
}

TEST_F(Tree, TheArrowAfterALongNameLeavesTheCountsReadable)
{
    load_five_leaves();
    std::string frame(five_leaves);
    frame.replace(frame.find("Sub"), 3, "A_name_of_21_letters_");
    write_file("zoltexe/FIVE.fra", "1 May\n" + frame + "\n");
    read_taxonomy("FIVE", "five");
    play_tree("Up Up Down Down F2 Up");
    EXPECT_SCREEN("tree_long_name");
}

TEST_F(Tree, SelectionKeysTakeWhatTheySay)
{
    load_five_leaves();
    ASSERT_EQ(add_ensemble(), 1);
    set_members(1, std::vector{0});
    const std::vector<std::string> all = {"Ant alpha@1", "Elk epsilon@5", "Bee beta@2", "Cat gamma@3",
                                          "Fox zeta@6"};
    const struct {
        const char* keys;
        std::vector<std::string> names;
    } cases[] = {
        {"F2 F3", all},
        {"S-F2 F3", {"Elk epsilon@5", "Bee beta@2", "Cat gamma@3", "Fox zeta@6"}},
        {"n F3", {"Cat gamma@3"}},
        {"N S-F2 F3", {"Cat gamma@3", "Elk epsilon@5", "Bee beta@2", "Fox zeta@6"}},
        {"F2 F4 Enter Up F2 F3 Enter", {"Ant alpha@1", "Elk epsilon@5", "Bee beta@2"}},
        {"F2 Up F4 Down Enter F3", {"Cat gamma@3", "Fox zeta@6"}},
        {"F2 F4 Escape F3", all},
        // At most 20 per cent missing: of ten columns two.
        {"\"<\" Down*8 Enter F3", {"Ant alpha@1", "Bee beta@2", "Fox zeta@6"}},
        {"\">\" Down*8 Enter F3", {"Elk epsilon@5", "Cat gamma@3"}},
        {"\">\" Up Enter F3", {"Elk epsilon@5"}}, // more than 98
        {"F2 \"<\" Escape F3", all},
    };
    for (const auto& [keys, names] : cases) {
        set_members(0, {});
        set_ensemble_name(0, "kept");
        EXPECT_EQ(play_tree(keys).ending, Ending::returned) << keys;
        EXPECT_EQ(constructed, 0);
        EXPECT_EQ(ensemble_names(), names) << keys;
        expect_sound();
    }
}

TEST_F(Tree, MissingCharactersAreThoseOfTheType)
{
    load_rows({{.name = "a", .text = "ACGT NNRY*-?BZXU"}, {.name = "b", .text = "ACG"}});
    EXPECT_EQ(missing_percentage(0), 62); // 10 of 16: all but A, C, G, T, Z, U
    EXPECT_EQ(missing_percentage(1), 81); // 13 of 16 are padding
    type_seq = 1;
    EXPECT_EQ(missing_percentage(0), 43); // blank * - ? B Z X
    delete_residue(1, 15);                // the text ends before the alignment does
    EXPECT_EQ(missing_percentage(1), 81);
}

TEST_F(Tree, CompletenessIsOfferedInSteps)
{
    load_five_leaves();
    play_tree("\"<\"");
    EXPECT_SCREEN("tree_completeness");
    play_tree("Down Up \"<\""); // a leaf with nothing but a masked species still shows the list
    EXPECT_EQ(play_tree("Up Up Down Down Right Down \"<\" F3").ending, Ending::script_ended)
        << "D has no species: no list opens, and F3 warns";
    EXPECT_TRUE(shows("You must select at least one species"));
}

TEST_F(Tree, AnEnsembleKeepsItsSpeciesAndGetsAName)
{
    load_five_leaves();
    set_members(0, std::vector{5, 0});
    EXPECT_EQ(play_tree("Up Up Down F2 F3 Enter").ending, Ending::returned);
    EXPECT_EQ(ensemble_names(), (std::vector<std::string>{"Fox zeta@6", "Ant alpha@1", "Bee beta@2"}));
    EXPECT_STREQ(ens_names[0], "B") << "the name of the current group is proposed";

    play_tree("F3"); // has a name: none is asked for
    EXPECT_EQ(constructed, 0);
    play_tree("S-F3 x y");
    EXPECT_SCREEN("tree_name");
    play_tree("S-F3 BackSpace \"New one\" Enter");
    EXPECT_STREQ(ens_names[0], "New one");
    EXPECT_EQ(line(1).substr(0, 21), "Ensemble  1: New one ");
    play_tree("S-F3 z Escape");
    EXPECT_STREQ(ens_names[0], "") << "escape stores an empty name";
    play_tree("S-F3 q Enter F4 Enter");
    EXPECT_STREQ(ens_names[0], "") << "deselecting everything takes the name away";
}

TEST_F(Tree, AtMostTenThousandSpeciesBecomeAnEnsemble)
{
    load_many(10001, [](int i) { return i == 0 ? "B" : "A"; });
    play_tree("F2 F3");
    EXPECT_EQ(line_of("You can select at most 10000 species per ensemble"), 8);
    EXPECT_EQ(screen_line(1).substr(52, 5), "10001");
    EXPECT_EQ(play_tree("Up Up F2 F3 Enter").ending, Ending::returned);
    EXPECT_EQ(members(0).size(), 10000U);
    play_tree("Up Up");
    EXPECT_EQ(screen_line(4).substr(69, 11), "10000/10000") << "five digits take the parentheses' places";
}

TEST_F(Tree, LeavingAsksFirst)
{
    load_five_leaves();
    mark_saved();
    EXPECT_EQ(play_tree("S-F1 n S-F1 y").ending, Ending::returned);
    EXPECT_EQ(constructed, -1);
    play_tree("S-F1");
    EXPECT_EQ(line_of("Do you want to load another file?"), 7);
    const Played ended = play_tree("F2 Escape n Up Escape y");
    EXPECT_EQ(ended.ending, Ending::program_ended);
    EXPECT_EQ(ended.status, 0);
    play_tree("Escape n");
    EXPECT_TRUE(shows("selected species/   6")) << "the screen is drawn again";
}

TEST_F(Tree, ANewGeometryScalesTheTreeAgain)
{
    load_five_leaves();
    play_tree("Up Up Down Down Right");
    const std::string before = screen_dump();
    play_tree("Up Up Down Down Right S-F10 Down*3 Enter Down Enter Escape");
    // Cells of 8x16 were chosen and then given back.
    EXPECT_EQ(_gr_size_x, 14);
    EXPECT_EQ(screen_dump(), before);
    play_tree("S-F10 Down*3 Enter Down Enter Up Enter");
    EXPECT_EQ(_gr_size_x, 16);
    EXPECT_EQ(node_named("A")->y, 24);
    const node& sub = *node_named("Sub");
    EXPECT_EQ((std::array{sub.x, sub.y, sub.sub}), (std::array{371, 56, 16}));
}

TEST_F(Tree, OtherColoursAreTakenAtOnce)
{
    load_five_leaves();
    write_file("zolt/data/other.col", "12,A\n");
    play_tree("Up Up S-F12 Down Enter Down");
    EXPECT_EQ(color_at(4, 48), 12);
    EXPECT_EQ(color_at(5, 48), 7) << "not in the file: grey";
    EXPECT_EQ(file_COL, path("zolt/data/other.col"));
    EXPECT_EQ(read_file("zolt/data/afas.ref").substr(0, 5), "FIVE\n");
}

TEST_F(Tree, RealTreesShowTheirFigures)
{
    load(ssu_small);
    play_tree("F2");
    EXPECT_SCREEN("tree_ssu_small"); // 58 species have a group; one is masked
    load(birds);
    play_tree("Down Down Up*10");
    EXPECT_SCREEN("tree_birds"); // with a collapsed subtree
    load(proteases);
    play_tree("F2 Up*3");
    EXPECT_SCREEN("tree_families");
    play_tree("Up*20 Right");
    EXPECT_TRUE(line(2).starts_with("Node: CAP-")) << line(2);
    expect_sound();
}

TEST_F(Tree, SurvivesAnyGeometryKeysAndCoordinates)
{
    std::mt19937 random(42);
    const auto pick = [&random](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
    const std::string_view keys =
        "Up|Down|PgUp|PgDn|Left|Right|Home|F2|S-F2|n|F4 Down Enter|F5 Down 3 F2 Escape n|"
        "\"<\" Down Enter|F6 n|Enter Enter F2|Up*7|Right F2|S-F3 a Enter|Down*5|F4 Enter|S-F10 Escape";
    const auto number = [&pick](bool wild) {
        return std::to_string(wild ? pick(20000000) - 10000000 : pick(500));
    };
    for (int round = 0; round < 40; round++) {
        load_five_leaves();
        const bool wild = round % 2;
        std::string line;
        for (const char* label : {"((E:", ",(D:", ",C:", ")Sub:", ")Low:", ",(B:", ",A:", ")High:", ")Root:"})
            line += label + number(wild) + ":" + number(wild) + ":" + (pick(3) ? "-1" : number(wild));
        ASSERT_EQ(build_from(line + ";"), "");
        read_file_COL();
        read_file_NOM();
        open({.lines = 20 + pick(pick(2) ? 20 : 181),
              .columns = 20 + pick(pick(2) ? 70 : 181),
              .cell_width = 4 + pick(13),
              .cell_height = 5 + pick(22)});
        const std::string script = random_keys(random, keys, 40);
        SCOPED_TRACE(line + "\n" + script);
        ASSERT_EQ(play_tree(script).ending, Ending::script_ended);
        expect_sound();
        set_members(0, {});
    }
}

// What the moves and selections leave on the screen is what drawing it whole would show, but for the short
// line that a highlighted root leaves at its left.
TEST_F(Tree, EveryStepLeavesTheScreenAsAWholeRedrawWould)
{
    std::mt19937 random(7);
    for (const Geometry& geometry :
         {Geometry{}, Geometry{.lines = 25, .columns = 44, .cell_width = 8},
          Geometry{.lines = 20, .columns = 90, .cell_width = 16, .cell_height = 25}}) {
        open(geometry);
        load_five_leaves();
        for (int round = 0; round < 40; round++) {
            const std::string script =
                (round % 2 ? "Up*2 Down*2 Right " : "") +
                random_keys(random, "Up|Down|PgUp|Left|Left|Right|Home|F2|n|F4 Down Enter", 12);
            play_tree(script);
            const auto screen = [] {
                return std::regex_replace(screen_dump(), std::regex("\n( *\\d+ )\\+"), "\n$1|");
            };
            const std::string stepwise = screen();
            play_tree(script + "F1 Escape"); // there is no help file: a warning, then everything anew
            EXPECT_EQ(stepwise, screen()) << script;
        }
    }
}
