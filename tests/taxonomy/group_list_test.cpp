// The list of groups, for choosing and for colours; colours on the tree.
#include "taxonomy/group_colours.h"
#include "taxonomy/group_list.h"
#include "taxonomy/tree_colours.h"
#include "tree_fixture.h"

#include <filesystem>

using namespace kq;
using namespace kq::test;

namespace {

class GroupList : public TreeTest {
public:
    // The name of the chosen group; "" on ESCAPE.
    std::string choose(std::string_view keys)
    {
        int group = -99;
        const auto played = play(keys, [&group] { group = choose_group(); });
        if (played.ending != Ending::returned) return "goes on";
        return group < 0 ? "" : std::string(group_name(group));
    }
    // A frame of this many leaves, named by their numbers.
    void load_numbered(int count)
    {
        std::vector<std::string> names;
        for (int i = 0; i < count; i++)
            names.push_back("Leaf_" + std::to_string(1000 + i));
        load_leaves(names);
    }
    // The highlighted entry, and the first one on the screen.
    std::string current() const
    {
        for (int l = 2; l < _nb_line - 2; l++)
            for (int column = 3; column < _nb_col; column++)
                if (background_at(l, column) != 0)
                    return screen_line(l).substr(static_cast<std::size_t>(column) - 1, 9);
        return "none";
    }
    std::string first() const { return screen_line(2).substr(2, 9); }
};

} // namespace

TEST_F(GroupList, NamesAreListedInOrder)
{
    load(ssu_small);
    choose("Down*3");
    EXPECT_SCREEN("group_list");
    choose("g Down");
    EXPECT_SCREEN("group_list_letter");
    EXPECT_EQ(choose("g End Enter"), "Green_sulfur");
    EXPECT_EQ(choose("g F2 Home Enter"), "A_Proteobacteria");
    EXPECT_EQ(choose("5 Left Right Escape"), "");
    choose("q");
    EXPECT_EQ(line_of("There are no groups beginning with this letter"), 11);
    EXPECT_EQ(choose("q x Enter"), "A_Proteobacteria");
}

TEST_F(GroupList, ColumnsFollowTheCursorAndLeaveQuestionMarksOut)
{
    load_numbered(120); // and as many branches called "?"
    choose("Right*2 Down*3");
    EXPECT_SCREEN("group_list_columns");
    EXPECT_EQ(choose("End Enter"), "Leaf_1119");
    const struct {
        const char *keys, *first, *current;
    } cases[] = {
        {"l Right Right Down*29", "Leaf_1000", "Leaf_1089"},
        {"l Right Right Down*30", "Leaf_1030", "Leaf_1090"},
        {"l End", "Leaf_1030", "Leaf_1119"},
        {"l End Left*3", "Leaf_1000", "Leaf_1029"},
        {"l Right*9", "Leaf_1030", "Leaf_1090"},
        {"l PgDn*30", "Leaf_1030", "Leaf_1119"},
        {"l End PgUp*99", "Leaf_1000", "Leaf_1000"},
    };
    for (const auto& c : cases) {
        choose(c.keys);
        EXPECT_EQ(first(), c.first) << c.keys;
        EXPECT_EQ(current(), c.current) << c.keys;
    }
}

TEST_F(GroupList, SurvivesAnyGeometryAndKeys)
{
    std::mt19937 random(3);
    const auto pick = [&random](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
    load_numbered(250);
    open({.lines = 20, .columns = 20});
    play("Down", [] { change_color_all_groupe(); });
    EXPECT_SCREEN("group_colours_tiny");
    for (int round = 0; round < 40; round++) {
        open({.lines = 20 + pick(pick(2) ? 30 : 181), .columns = 20 + pick(pick(2) ? 70 : 181)});
        const std::string moves = "Up|Down|Left|Right|PgUp|PgDn|Home|End|Down*40|Right*3|";
        const std::string keys = random_keys(random, moves + "l|c|x Down|F2|5|5", 30);
        SCOPED_TRACE(keys);
        EXPECT_EQ(play(keys, [] { choose_group(); }).ending, Ending::script_ended);
        EXPECT_NE(current(), "none");
        const std::string colours = random_keys(random, moves + "l|5|\"/\"|Enter", 30);
        EXPECT_EQ(play(colours, [] { change_color_all_groupe(); }).ending, Ending::script_ended) << colours;
        EXPECT_NE(current(), "none");
        EXPECT_EQ(screen_cell(_nb_line / 2, _nb_col).shape, shape_vertical) << "the frame is whole";
    }
}

TEST_F(GroupList, KeysOfTheKeypadGiveColours)
{
    load_five_leaves();
    const auto colour_all = [](int& result) { result = change_color_all_groupe(); };
    int result = -99;
    // Names in order: A, B, C, D, E; in the frame E, D, C, B, A.
    EXPECT_EQ(play("0 Down . Down 9 Down + Enter x Down \"/\" F5", [&] { colour_all(result); }).ending,
              Ending::returned);
    EXPECT_EQ(result, 0);
    EXPECT_EQ(read_file("zolt/data/five.col"), "11,E\n14,D\n10,C\n15,B\n1,A\n");
    affect_color_groupe(0x12f, find_group("A")); // an extended key acts by its low byte: Alt-V is "/"
    EXPECT_EQ(color_groupe[static_cast<std::size_t>(find_group("A"))], 11);
    play("Escape", [&] { colour_all(result); });
    EXPECT_EQ(result, -1);
    EXPECT_EQ(color_groupe[static_cast<std::size_t>(find_group("A"))], 11) << "stays in memory";

    load(ssu_small);
    write_file("zolt/data/other.col", "12,Chlamydiales\n");
    play("F2 Down*2 Enter F2 Escape", [&] { colour_all(result); });
    EXPECT_EQ(color_of("Chlamydiales"), 12);
    EXPECT_EQ(color_of("Fusobacteria"), 7);
}

TEST_F(GroupList, LeavesAreColouredOnTheTree)
{
    load_five_leaves();
    play_tree("Up*2 S-F11 4 Down . Down 9"); // Sub is collapsed: it has no colour
    EXPECT_SCREEN("tree_colours");
    play_tree("Up*2 S-F11 4 Down . Up F5");
    EXPECT_EQ(read_file("zolt/data/five.col"), "5,E\n7,D\n14,C\n15,B\n5,A\n");
    play_tree("Up*2 S-F11 1 Down*2 Enter Escape");
    EXPECT_EQ(col_text(), "5,E\n7,D\n14,C\n15,B\n5,A\n") << "as in the file again";
    EXPECT_TRUE(shows("F1:Help F2:All"));
    play_tree("S-F11"); // on an expanded branch
    EXPECT_TRUE(shows("F1:Help F2:All"));
    // The file goes away or is spoilt meanwhile: the colours from before are back.
    std::filesystem::remove(file_COL);
    play_tree("Up*2 S-F11 1 Escape");
    EXPECT_TRUE(shows("Problem in opening file"));
    write_file("zolt/data/five.col", "3,A\nnonsense\n");
    play_tree("Up*2 S-F11 1 Escape Q");
    EXPECT_EQ(col_text(), "5,E\n7,D\n14,C\n15,B\n5,A\n");
}
