// The text of a tree.
#include "analysis/nj_tree.h"
#include "core/store.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace kq {
namespace {

// As deep as a tree can be.
TEST(NjTree, CaterpillarOfAllSpecies)
{
    nodenj* tree = cr_nodenj();
    tree->name = "a b";
    for (int species = 1; species < max_species; species++) {
        nodenj* const node = cr_nodenj();
        nodenj* const leaf = cr_nodenj();
        leaf->name = "l";
        const bool right = species % 3 == 0;
        (right ? node->right : node->left) = tree;
        (right ? node->left : node->right) = leaf;
        tree = node;
    }
    std::string text;
    EXPECT_TRUE(sauve_int(tree, [&](std::string_view piece) {
        text += piece;
        return true;
    }));
    free_subtree(tree);
    std::size_t depth = 0, deepest = 0, leaves = 0;
    for (const char c : text) {
        depth += c == '(' ? 1 : c == ')' ? -1UL : 0;
        deepest = std::max(deepest, depth);
        leaves += c == ',';
    }
    EXPECT_EQ(depth, 0U);
    EXPECT_EQ(deepest, max_species - 1U);
    EXPECT_EQ(leaves, max_species - 1U);
    EXPECT_NE(text.find("(l:0.000000,a_b:0.000000):0.000000"), std::string::npos);
}

} // namespace
} // namespace kq
