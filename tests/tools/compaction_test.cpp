// Compaction of a region: the kernel, and the command on whole alignments.
#include "support/plain_reference.h"
#include "tools/compaction.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>

using namespace kq;

namespace {

std::string compacted(std::string region, Direction direction)
{
    compact(region, direction);
    return region;
}

} // namespace

TEST(Compaction, PushesResiduesToOneEnd)
{
    EXPECT_EQ(compacted("A*C-G T***", Direction::left), "ACGT******");
    EXPECT_EQ(compacted("A*C-G T***", Direction::right), "******ACGT");
    EXPECT_EQ(compacted(" *-", Direction::left), "***");
    EXPECT_EQ(compacted("?X$n", Direction::right), "?X$n") << "no gaps";
}

TEST(Compaction, EqualsThePlainForm)
{
    std::mt19937 random(1);
    for (int round = 0; round < 500; round++) {
        std::string region(1 + random() % 70, ' ');
        for (char& c : region)
            c = "AC*- ?"[random() % 6];
        std::string mirrored(region.rbegin(), region.rend());
        auto expected = plain::compacted(mirrored);
        std::ranges::reverse(expected);
        ASSERT_EQ(compacted(region, Direction::left), plain::compacted(region));
        ASSERT_EQ(compacted(region, Direction::right), expected) << region;
    }
}
