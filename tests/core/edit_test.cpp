// The edit door: its limits, and what the random edits do not reach.
#include "core/column_counts.h"
#include "core/columns.h"
#include "core/edit.h"
#include "core/store.h"
#include "support/ali_folder.h"
#include "support/model.h"

#include <gtest/gtest.h>

#include <numeric>

using namespace kq;
using kq::test::PlainModel;

namespace {

void load(std::vector<std::string> rows)
{
    PlainModel model;
    model.columns = static_cast<int>(rows.at(0).size());
    model.rows = std::move(rows);
    model.load();
}

std::vector<int> first_species(int count)
{
    std::vector<int> species(static_cast<std::size_t>(count));
    std::iota(species.begin(), species.end(), 0);
    return species;
}

} // namespace

TEST(Edit, TypingEndsOneByteBeforeTheStride)
{
    load(std::vector<std::string>(20000, "ACGT"));
    ASSERT_EQ(lenseq_tot, 15000);
    while (row(7).size() < 14999)
        ASSERT_TRUE(insert_residue(7, 1, 'G'));
    EXPECT_FALSE(insert_residue(7, 1, 'G'));
    EXPECT_EQ(test::row_text(7), "A" + std::string(14995, 'G') + "CGT");
    EXPECT_EQ(test::row_text(8), "ACGT");
    EXPECT_EQ(store_error(), "");

    // Its tail cannot move further: refused, for one row, for an ensemble and for all.
    set_members(0, std::vector{6, 7, 8});
    const auto before = test::row_text(7);
    EXPECT_FALSE(insert_chars(Rows::one(7), 0, 1, '*'));
    EXPECT_FALSE(insert_chars(Rows::of_ensemble(0), 0, 1, '*'));
    EXPECT_EQ(open_columns(Rows::one(8), 0, 1), Growth::too_long);
    EXPECT_EQ(test::row_text(7), before);
    EXPECT_EQ(test::row_text(6), "ACGT");
    EXPECT_EQ(nb_nuc_tot, 4);
    EXPECT_EQ(open_columns(Rows::one(7), 0, 1), Growth::grown); // kept, it moves nowhere
    EXPECT_EQ(test::row_text(6), "*ACGT");
    delete_chars(Rows::one(7), 0, 1);
    EXPECT_TRUE(insert_chars(Rows::one(7), 0, 1, '*'));
}

TEST(Edit, TypingEndsAtTheLongestLineThatCanBeReadBack)
{
    load({std::string(149990, 'A'), "C"});
    ASSERT_GT(lenseq_tot, max_alignment);
    for (int i = 0; i < 7; i++)
        EXPECT_TRUE(insert_residue(0, 0, 'G'));
    EXPECT_FALSE(insert_residue(0, 0, 'G'));
    EXPECT_EQ(row(0).size(), 149997U);
    EXPECT_EQ(grow_alignment(8), Growth::too_long);
    EXPECT_EQ(grow_alignment(7), Growth::grown);
    EXPECT_FALSE(may_grow(1));
    EXPECT_EQ(store_error(), "");
}

TEST(Edit, SpeciesAreRefusedWhereARowWouldNotFit)
{
    load(std::vector<std::string>(10000, "ACGT"));
    while (insert_residue(9999, 4, 'A')) {
    }
    EXPECT_EQ(row(9999).size(), 29999U);
    EXPECT_EQ(add_species("One more@", "A"), Adding::too_many_characters);
    EXPECT_EQ(nb_spec, 10000);
    delete_residue(9999, 0);
    delete_residue(9999, 0);
    delete_residue(9999, 0);
    EXPECT_EQ(add_species("One more@", "A"), Adding::added); // 300000000 / 10001 = 29997
    EXPECT_EQ(store_error(), "");

    load(std::vector<std::string>(20000, "AC"));
    EXPECT_EQ(add_species("Too many@", "A"), Adding::too_many_species);
}

TEST(Edit, EnsemblesHoldTenThousandMembersOnce)
{
    load(std::vector<std::string>(10003, "A"));
    set_members(0, first_species(10003));
    EXPECT_EQ(nb_spec_ens[0], 10000);
    EXPECT_FALSE(append_member(0, 10001));
    remove_member(0, 0);
    EXPECT_FALSE(append_member(0, 5)); // a member already
    EXPECT_TRUE(append_member(0, 10001));
    EXPECT_EQ(members(0).back(), 10001);
    for (int e = 1; e < max_ensembles; e++)
        EXPECT_EQ(add_ensemble(), e);
    EXPECT_EQ(add_ensemble(), -1);
    EXPECT_EQ(columns_error(), "");
}

// More than 65535 rows counted together, then fewer again.
TEST(Edit, CountsSurviveTheChangeOfTheirWidth)
{
    load(std::vector<std::string>(10000, "AC"));
    set_members(0, first_species(10000));
    for (int e = 1; e < 7; e++) {
        set_members(add_ensemble(), first_species(10000));
        EXPECT_EQ(column_counts(CountedSet::ensembles).count(8, 0),
                  static_cast<std::uint32_t>(e + 1) * 10000U);
    }
    overwrite(3, 0, "C");
    EXPECT_EQ(column_counts(CountedSet::ensembles).count(8, 0), 70000U - 7U);
    remove_ensemble(2);
    EXPECT_EQ(column_counts(CountedSet::ensembles).count(8, 0), 60000U - 6U);
    EXPECT_EQ(columns_error(), "");
}
