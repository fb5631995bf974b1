// The tree of an analysis in its file.
#include "analysis/analysed.h"
#include "analysis/comment_header.h"
#include "analysis/distance_matrix.h"
#include "analysis/nj_tree.h"
#include "analysis/output_names.h"
#include "analysis/parameters.h"
#include "editor/editor_test.h"
#include "support/plain_joining.h"

#include <cmath>
#include <filesystem>
#include <random>

namespace kq {
namespace {

using test::Ending;
using Strings = std::vector<std::string>;

class NjTree : public test::EditorTest {
public:
    NjTree()
    {
        stop_clock(1179302400);
        work_in("work");
        nomfic = "test-0.mat";
    }
    ~NjTree() override
    {
        libere_memoire_dist();
        analysed_reset();
        output_names_reset();
        parameters_reset();
    }

protected:
    void analyse(const Strings& names, const std::vector<float>& matrix)
    {
        load(Strings(names.size(), "A"));
        nb_spec_auto = nb_spec;
        name_distances(type_seq);
        ASSERT_EQ(alloue_memoire_dist(), 0);
        std::ranges::copy(matrix, dist);
        for (int i = 0; i < nb_spec; i++) {
            cor_auto[static_cast<std::size_t>(i)] = i;
            set_identifier(i, names[static_cast<std::size_t>(i)]);
        }
    }
    bool calculated(const char* script = "")
    {
        bool result = false;
        EXPECT_EQ(play(script, [&] { result = calcul_arbre(); }).ending, Ending::returned);
        return result;
    }
};

TEST_F(NjTree, IsWrittenBelowItsComments)
{
    Strings names;
    std::vector<float> matrix;
    std::mt19937 random(3);
    for (int i = 0; i < 60; i++)
        names.push_back("Genus" + std::to_string(i) + " sp. (x:y)");
    for (int cell = 0; cell < 60 * 60; cell++) // enormous, negative, infinite, undefined lengths
        matrix.push_back(
            std::ldexp(static_cast<float>(random() % 2000) - 1000, static_cast<int>(random() % 99)));
    matrix[50 * 60 + 7] = INFINITY;
    matrix[51 * 60 + 20] = INFINITY;
    const std::string tree = plain::joined_tree(matrix, names).text;
    EXPECT_NE(tree.find("inf,"), std::string::npos);
    EXPECT_NE(tree.find("nan,"), std::string::npos);

    analyse(names, matrix);
    EXPECT_TRUE(calculated());
    EXPECT_EQ(nomfic, "test-0.arb");
    EXPECT_EQ(read_file("work/test-0.arb"),
              comment_header('m') + "#Tree calculated by the Neighbor Joining method\n" + tree);
    EXPECT_FALSE(shows("COMPUTING"));
}

TEST_F(NjTree, IsNotThereWhenItCannotBe)
{
    const std::vector<float> matrix(16, 1);
    analyse({"a", "b", "c"}, matrix);
    EXPECT_FALSE(calculated("early Escape"));
    std::filesystem::create_directory(path("work/test-0.arb"));
    EXPECT_FALSE(calculated("Z")) << "the warning is closed";
    nb_spec_auto = 2;
    EXPECT_TRUE(calculated()) << "the run goes on";
    EXPECT_EQ(file_names("work"), Strings{"test-0.arb"});
    EXPECT_EQ(file_names("work/test-0.arb"), Strings{});
}

// As deep as a tree can be.
TEST_F(NjTree, CaterpillarOfAllSpecies)
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
