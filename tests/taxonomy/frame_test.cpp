// Frames: reading hostile files, building the tree with and without families, walking it.
#include "screen/text.h"
#include "support/shared_data.h"
#include "taxonomy/frame_layout.h"
#include "taxonomy_session.h"

using namespace kq;
using namespace kq::test;

namespace {

class Frame : public TaxonomyTest {};

std::vector<std::string> group_names()
{
    std::vector<std::string> names;
    for (int g = 0; g < nb_groupe; g++)
        names.emplace_back(group_name(g));
    return names;
}

// A frame of `leaves` leaves, each inner node joining one more leaf.
std::string comb(int leaves, int marked = 0)
{
    std::string line(static_cast<std::size_t>(leaves - 1), '(');
    line += "g:1:2:-1";
    for (int i = 1; i < leaves; i++)
        line += ",g:1:2:-1)i:1:2:" + std::string(i <= marked ? "7" : "-1");
    return line + ";";
}

} // namespace

TEST_F(Frame, NodesFollowTheirLabels)
{
    ASSERT_EQ(build_from(five_leaves), "");
    EXPECT_EQ(frame_error(), "");
    EXPECT_EQ(group_names(),
              (std::vector<std::string>{"E", "D", "C", "Sub", "Low", "B", "A", "High", "Root", "Cupboard"}));
    EXPECT_EQ(nb_feuille, 5);
    EXPECT_EQ(group_name(proot->child2->child2->no), "A");
    EXPECT_EQ(proot->child1->child2->sub, 16);
    EXPECT_EQ(proot->sub, 48) << "the root's mark is its y";
    ASSERT_EQ(nb_arbre, 2);
    EXPECT_EQ(group_name(p_arbre[1]->no), "Sub");
    EXPECT_EQ(color_groupe[0], 7);
    EXPECT_EQ(color_groupe[3], -1);
    EXPECT_EQ(color_groupe[static_cast<std::size_t>(cupboard())], -1);
}

TEST_F(Frame, WithFamiliesThereIsACopyForEach)
{
    load_names({"abc-Homo sapiens@1", "xyz-Homo sapiens@2", "uvw-Mus musculus@3"});
    ASSERT_EQ(nb_family, 3);
    ASSERT_EQ(build_from("(B:371:24:-1,A:371:8:-1)Root:3:18:-1;"), "");
    EXPECT_EQ(frame_error(), "");
    EXPECT_EQ(group_names(),
              (std::vector<std::string>{"B", "A", "Root", "Auto", "abc-", "xyz-", "uvw-", "Cupboard"}));
    // The root joins the families with the leaf of "Cupboard", which stands below them.
    EXPECT_EQ(group_name(proot->child1->no), "Cupboard");
    EXPECT_EQ(proot->child1->file_y, 16 * 3 + 8);
    EXPECT_EQ(color_groupe[static_cast<std::size_t>(cupboard())], 7);
    const node* join2 = proot->child2;
    EXPECT_EQ(join2->file_x, 371 - 6);
    EXPECT_EQ(join2->file_y, (16 + 40) / 2); // of its children at 16 and 40
    EXPECT_EQ(group_name(join2->child1->no), "uvw-");
    EXPECT_EQ(join2->child1->family, 2);
    EXPECT_EQ(join2->child1->sub, 18) << "the mark is the root's former y";
    EXPECT_EQ(join2->child2->child2->child2->family, 0);
    EXPECT_EQ(join2->child2->child1->child2->family, 1);
    EXPECT_EQ(nb_arbre, 4);
    EXPECT_EQ(nb_feuille, 7);
}

TEST_F(Frame, MalformedFilesAreRefusedWithTheirMessage)
{
    const std::string label = "remplir_noeud pc2 est NULL";
    const std::string length = "The systematic frame line is too long (MAXIMUM = 149999)";
    const struct {
        std::string text, error;
    } cases[] = {
        {"", length},
        {"version only\n", length},
        {"v\n(A:1:2:-1,B:1:2:-1)R:1:2:-1;", length}, // no newline
        {"v\n\n", label},
        {"v\nA:1:2:-1;\n", label},
        {"v\n(A:1:2:-1,B:1:2:-1)R:1:2:-1\n", label},           // no ";"
        {"v\n(A:1:2:-1,B:1:2:-1)R:1;\n", label},               // one number
        {"v\n(A:1:2:-1,B)R:1:2:-1;\n", label},                 // no numbers
        {"v\n(A:1:2:-1,B:1:2:-1,C:1:2:-1)R:1:2:-1;\n", label}, // three children
        {"v\n(A:1:2:-1)R:1:2:-1;\n", label},                   // one child
        {"v\n((A:1:2:-1,B:1:2:-1)I:1:2:-1\n", label},          // cut short
        {"v\n" + std::string(149999, '(') + "\n", label},      // deep
        {"v\n" + std::string(149998, '(') + ";\n", label},     //
        {"v\n(((A::::,\xff\x01:1\n", label},
        {"v\n" + comb(301) + "\n", "There are too many groups: maximum 600; here there are 601"},
    };
    for (const auto& [text, error] : cases)
        EXPECT_EQ(parse_fra(text).error, error) << text.substr(0, 60);
    // Deep but well-formed frames are read without recursion.
    EXPECT_EQ(parse_fra("v\n" + comb(300) + "\n").error, "");
}

TEST_F(Frame, LimitsOfLengthGroupsAndSubtrees)
{
    std::string line = "(A:1:2:-1,B:1:2:-1)R:1:2:-1;";
    line.resize(max_frame_line, ' ');
    EXPECT_EQ(parse_fra("v\n" + line + "\n").error, "");
    EXPECT_NE(parse_fra("v\n" + line + " \n").error, "");

    EXPECT_EQ(build_from(comb(300)), ""); // 599 groups and "Cupboard"
    EXPECT_EQ(nb_groupe, 600);
    EXPECT_EQ(nb_arbre, 1);
    load_names({"a-x y", "b-x y"});
    EXPECT_EQ(build_from(comb(299)), "There are too many groups: maximum 600; here there are 601");
    EXPECT_EQ(proot, nullptr);
    nb_family = 37; // each family marks a subtree, and so does every inner node of its copy of the frame
    EXPECT_EQ(build_from(comb(20, 19)), "There are too many subtrees. The limit is fixed at 500");
    EXPECT_EQ(frame_error(), "");
}

TEST_F(Frame, NumbersAndNamesAreBounded)
{
    const FraFile file = parse_fra("v\r\n(" + std::string(40, 'n') +
                                   ":99999999999999999999:-99999999999999999999:x,B: 12z:+3)R:1:2:-1;\r\n");
    ASSERT_EQ(file.error, "");
    EXPECT_EQ(file.version, "v");
    EXPECT_EQ(file.nodes[0].name, std::string(21, 'n'));
    EXPECT_EQ(file.nodes[0].x, max_coordinate);
    EXPECT_EQ(file.nodes[0].y, -max_coordinate);
    EXPECT_EQ(file.nodes[0].sub, 0);
    EXPECT_EQ(file.nodes[1].x, 12);
    EXPECT_EQ(file.nodes[1].y, 3);
    EXPECT_EQ(file.nodes[1].sub, -1) << "a label without its third number is no head";
}

TEST_F(Frame, ScalesFromItsOwnNumbersAgainAndAgain)
{
    ASSERT_EQ(build_from(five_leaves), "");
    const node* sub = node_named("Sub");
    const auto expect = [&](int height, int width, int x, int y, int mark) {
        _gr_size_x = height;
        _gr_size_y = width;
        adjust_frame();
        EXPECT_EQ(maxgraph, 46 * width);
        EXPECT_EQ(sub->x, x);
        EXPECT_EQ(sub->y, y);
        EXPECT_EQ(sub->sub, mark);
    };
    expect(14, 8, 371, 49, 14);
    expect(16, 8, 371, 56, 16);
    expect(5, 4, 185, 17, 5);
    expect(25, 16, 742, 87, 25);
    expect(14, 8, 371, 49, 14);
}

TEST_F(Frame, NarrowWindowsKeepNamesAndCountsOnTheScreen)
{
    ASSERT_EQ(build_from(five_leaves), "");
    const int columns = _nb_col;
    for (_nb_col = 20; _nb_col <= 200; _nb_col++) {
        adjust_frame();
        EXPECT_LE(node_named("A")->x, maxgraph + 3) << _nb_col;
        EXPECT_GE(name_column(), 1);
        EXPECT_LE(name_column() + 8, counts_column());
        EXPECT_LE(counts_column() + 10, std::max(_nb_col, 20));
        if (_nb_col >= 80) {
            EXPECT_EQ(name_column(), (maxgraph + 3) / _gr_size_y + 2);
            EXPECT_EQ(counts_column(), (maxgraph + 3) / _gr_size_y + 24);
        }
    }
    _nb_col = columns;
}

TEST_F(Frame, MovesStepThroughLeavesAndCollapsedHeads)
{
    ASSERT_EQ(build_from(five_leaves), "");
    proot->sub = -1; // on display
    const auto walk = [](void (*move)(node*), int steps) {
        std::string names;
        for (int i = 0; i < steps; i++) {
            move(proot);
            names += std::string(group_name(pcour->no)) + " ";
        }
        return names;
    };
    pcour = proot;
    EXPECT_EQ(walk(descendre, 6), "Low E A B Sub E ") << "an expanded node leads to its lower child";
    pcour = proot;
    EXPECT_EQ(walk(monter, 7), "High A E Sub B A E ") << "the top wraps to the bottom";
    pcour = node_named("Sub");
    pcour->sub = -1; // shown as a view of its own
    node* const root = pcour;
    monter(root);
    EXPECT_EQ(group_name(pcour->no), "C");
    monter(root);
    EXPECT_EQ(group_name(pcour->no), "D");
    EXPECT_EQ(enclosing_subtree(*root), 0);
    EXPECT_EQ(enclosing_subtree(*proot), -1);
}

TEST_F(Frame, RealFramesHaveTheirFigures)
{
    const auto data = shared_data();
    if (!data) GTEST_SKIP() << "no shared alignments here";
    const struct {
        const char* path;
        int leaves, groups, heads;
    } frames[] = {
        {"ssu_small/ZOLTEXE/zoltexe/BACTERIA.fra", 19, 38, 0},
        {"ovomucoid/ZOLTEXE/zoltexe/BIRDS.fra", 28, 56, 1},
        {"ssu_medium/ZOLTEXE/zoltexe/FIRMICUT.fra", 138, 276, 7},
        {"yeast_wide/ZOLTEXE/zoltexe/YEAST.fra", 3, 6, 0},
    };
    for (const auto& [path, leaves, groups, heads] : frames) {
        const FraFile file = parse_fra(read_bytes(*data + "/" + path));
        ASSERT_EQ(file.error, "") << path;
        ASSERT_EQ(build_frame(file.nodes), "") << path;
        EXPECT_EQ(frame_error(), "");
        EXPECT_EQ(nb_feuille, leaves) << path;
        EXPECT_EQ(nb_groupe, groups) << path;
        EXPECT_EQ(nb_arbre, heads + 1) << path;
    }
}
