// Paralog families from identifiers.
#include "core/families.h"
#include "core/store.h"
#include "support/ali_folder.h"

#include <gtest/gtest.h>

using namespace kq;

namespace {

FamilyResult families_of(const std::vector<std::string>& identifiers)
{
    store_begin(static_cast<int>(identifiers.size()), 1);
    for (std::size_t i = 0; i < identifiers.size(); i++)
        store_put(static_cast<int>(i), identifiers[i], "A", false, false);
    return derive_families();
}

} // namespace

TEST(Families, AreTheBeginningsUpToTheFirstDash)
{
    const kq::test::AliFolder folder;
    EXPECT_EQ(families_of({"abc-1", "xyz-9", "plain", "abc-2-3", "a b-1", "xyz-"}), FamilyResult::found);
    ASSERT_EQ(nb_family, 2);
    EXPECT_STREQ(name_family[0], "abc-");
    EXPECT_STREQ(name_family[1], "xyz-");
    EXPECT_EQ((std::vector<int>(no_family.begin(), no_family.begin() + 6)), (std::vector{0, 1, 0, 0, 0, 1}));
    EXPECT_EQ(family_of("xyz-Homo"), 1);
    EXPECT_EQ(family_of("xy-Homo"), 2);

    EXPECT_EQ(without_family("abc-Homo sapiens@X1"), "Homo sapiens@X1");
    EXPECT_EQ(without_family("abc-Homo"), "abc-Homo"); // no blank behind the dash
    EXPECT_EQ(without_family("Homo sapiens"), "Homo sapiens");
    EXPECT_EQ(before_accession("Homo sapiens@X1@Y"), "Homo sapiens");
}
