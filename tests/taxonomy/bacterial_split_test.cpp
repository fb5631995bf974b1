// The fixed split of bacteria into five ensembles.
#include "core/consensus.h"
#include "core/edit.h"
#include "taxonomy/bacterial_split.h"
#include "tree_fixture.h"

using namespace kq;
using namespace kq::test;

namespace {

class Split : public TreeTest {
public:
    // What Backspace on the tree screen writes.
    std::string split(std::string_view keys = "BackSpace")
    {
        testing::internal::CaptureStdout();
        ending = play_tree(keys).ending;
        return testing::internal::GetCapturedStdout();
    }
    static std::vector<int> list(int e) { return {members(e).begin(), members(e).end()}; }
    Ending ending{};
};

} // namespace

TEST_F(Split, GroupsGoToTheirEnsembles)
{
    set_caractere();
    load_leaves({"A_Proteobacteria", "Aquificales", "Archaea", "B_Proteobacteria", "Cyanobacteria",
                 "E_Proteobacteria", "Firmicutes", "G_Proteobacteria", "Gram_positive_low_GC", "Spiro"});
    set_destroyed(8, true);
    while (nb_ens < 7)
        add_ensemble();
    set_members(6, std::vector{2});
    set_ensemble_name(1, "of before");
    // "Spiro" occurs in the list of the last ensemble. The first one is empty, and the editor copes.
    EXPECT_EQ(split(), "0\n1\n2\n1\n3\n");
    EXPECT_EQ(ending, Ending::returned);
    EXPECT_EQ(constructed, 0);
    EXPECT_EQ(nb_ens, 5);
    EXPECT_EQ(list(1), std::vector{4});
    EXPECT_EQ(list(2), (std::vector{3, 7}));
    EXPECT_EQ(list(3), std::vector{0});
    EXPECT_EQ(list(4), (std::vector{1, 5, 9}));
    EXPECT_STREQ(ens_names[1], "");
    for (int e = 0; e < 5; e++)
        EXPECT_EQ(collapsed(e), e != 0);
    EXPECT_STREQ(seq_cons[2], "ACGT");
}

TEST_F(Split, IsForAnEmptyFirstEnsembleOfBacteria)
{
    load_leaves({"A_Proteobacteria", "Archaea"});
    EXPECT_EQ(split("F2 BackSpace"), "");
    EXPECT_EQ(ending, Ending::script_ended) << "something is selected";
    ASSERT_EQ(add_ensemble(), 1);
    EXPECT_EQ(play("BackSpace", [] { construct_ensemble(1); }).ending, Ending::script_ended)
        << "a second one";

    load_leaves({"Archaea", "Eukaryota"});
    EXPECT_EQ(split(), "");
    EXPECT_EQ(line_of("There are no species in the groups of bacteria"), 8);
    EXPECT_EQ(nb_ens, 2);
    EXPECT_EQ(split("BackSpace Q F2 F3 Enter"), "");
    EXPECT_EQ(members(0).size(), 2U) << "the tree screen goes on";
}

TEST_F(Split, TakesTenThousandOfEachEnsemble)
{
    load_leaves({"G_Proteobacteria", "Archaea"});
    load_many(
        10003, [](int i) { return i == 0 ? "Archaea" : "G_Proteobacteria"; }, "LEAVES");
    EXPECT_EQ(split(), "0\n0\n10000\n0\n0\n");
    EXPECT_EQ(line_of("You can select at most 10000 species per ensemble"), 8);
    EXPECT_EQ(list(2).front(), 1);
    EXPECT_EQ(list(2).back(), 10000);
}

TEST_F(Split, RealBacteriaAreDivided)
{
    load(ssu_small);
    EXPECT_EQ(split(), "10\n13\n12\n4\n19\n");
    EXPECT_EQ(identifier(members(3)[0]).substr(0, 13), "Agrobacterium");
}
