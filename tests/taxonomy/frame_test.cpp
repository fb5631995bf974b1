// Frames: reading hostile files, building the tree with and without families, walking it.
#include "screen/text.h"
#include "taxonomy/frame_layout.h"
#include "taxonomy_session.h"

#include <utility>

using namespace kq;
using namespace kq::test;

namespace {

class Frame : public TaxonomyTest {};

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
    const int width = std::exchange(_gr_size_y, 16); // wide cells stretch the tree
    adjust_frame();
    EXPECT_EQ(node_named("A")->x, 742);
    _gr_size_y = width;
}
