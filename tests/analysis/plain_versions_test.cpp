// The plain versions that the fast ones are compared with, against values worked out by hand.
#include "support/plain_distances.h"
#include "support/plain_joining.h"

#include <gtest/gtest.h>

#include <cmath>

namespace kq::plain {
namespace {

TEST(PlainVersions, DistancesOfNucleicAcidsWorkedOutByHand)
{
    struct Case {
        std::string_view a, b;
        int type;
        double distance; // with the shape 0.5
    };
    const Case cases[] = {
        {"AAAA", "AAAG", 0, 25},
        {"AAAA", "AAAG", 1, 25},
        {"AAAA", "AAAG", 2, 0},
        {"AAAA", "AAAG", 7, -0.75 * std::log(2.0 / 3)},
        {"AAAA", "AAAG", 8, -0.5 * std::log(0.5)},
        {"AC-T", "ACGA", 3, 25},  // a gap against a base is compared
        {"AC-T", "ACGA", 6, 50},  //
        {"A-N*R", "A-A-A", 0, 0}, // neither a double gap nor an unknown is
        {"ACgt", "ACtA", 0, 25},  // no code against no code is an identity, against a base another
        {"--NN", "--AA", 11, 0},  // nothing to compare
        {"A---", "-CGT", 11, 0},  // nothing but gaps against bases
        {"AAAA", "GGGG", 8, 0},   // saturated
        {"AAAA", "GGGG", 11, 1},  //
        {"AAAAAAAA", "AAAAAAAG", 9, 1.0 / 8},
        {"AAAAAAAA", "AAAAAAGG", 9, 2.0 / 8 + 2.0 / 8 * (1.5 * 1 / 7 / (0.75 * 0.5 * 2))},
        // A: v = 1, 1 / 8 / 0.25. B: b(1) = 1 / (8 x 0.5), c(1) = 1, and nothing of transitions.
        {"AAAAAAAA", "AAAAAAAC", 10, 0.5 * ((0.5 + 1) / 2 + (0.25 + 1) - 1.5) / 2},
        {"AAAAAAAA", "AAAAAAAG", 11, 0.5 * (std::pow(0.75, -2) + 0.5 - 1.5) / 2},
        {"ACGTACG", "ACGTACA", 12, // g = 5, 4, 3 and 2 of 14; one purine transition out of 7
         2 * 0.5 * (5.0 * 3 / 14 / 8 * (std::pow(1 - 8.0 * 14 / (2 * 5 * 3) / 7, -2) - 1))},
        {"ACG", "GCA", 12, 0}, // no thymine
    };
    for (const Case& c : cases)
        EXPECT_FLOAT_EQ(arn_distance(c.a, c.b, c.type, 0.5), static_cast<float>(c.distance))
            << c.a << " " << c.b << " type " << c.type;
    for (int type = 0; type < 13; type++)
        EXPECT_FALSE(std::signbit(arn_distance("ACGU-TAN", "ACGU-TAN", type, 0.3))) << type;
}

TEST(PlainVersions, DistancesOfProteinsWorkedOutByHand)
{
    Weights weights;
    for (auto& row : weights)
        row.fill(1);
    weights[0][1] = weights[1][0] = 0.5; // A and C
    struct Case {
        std::string_view a, b;
        int type;
        double distance; // with the shape 0.5
    };
    const Case cases[] = {
        {"ACDE", "ACDF", 0, 25},
        {"AC-E", "ACDF", 0, 50},
        {"AC-E", "ACDF", 4, 100.0 / 3},
        {"AC-E", "ACDF", 5, 25},
        {"ADDE", "CDDF", 2, 37.5}, // half a weight and a whole one
        {"ABXE-", "AAAE-", 0, 0},  // no code, unknown, double gap
        {"AC-E", "ACDF", 1, -std::log(1 - 1.0 / 3 - 0.2 / 9)},
        {"AAAA", "DDDD", 1, 0}, // saturated
        {"A---", "-CDE", 6, 0}, // nothing but gaps against residues
        {"ACDE", "ACFF", 6, 0.5 * (0.5 + 0.5 * (1.5 * 1 / 3) / (2 * 0.5))},
        {"ACDE", "ACFF", 7, 0.5 * (std::pow(0.5, -2) - 1)},
        {"AAAA", "DDDD", 7, INFINITY},
    };
    for (const Case& c : cases)
        EXPECT_FLOAT_EQ(prot_distance(c.a, c.b, c.type, 0.5, weights), static_cast<float>(c.distance))
            << c.a << " " << c.b << " type " << c.type;
}

// A tree with the leaves a 1, b 2, c 4, d 5 and e 6 long, (a, b) 3 and (c, d) 2. Once a and b are joined,
// c and d are as close as their complement and come first.
TEST(PlainVersions, AnAdditiveMatrixGivesItsTreeBack)
{
    const float matrix[] = {
        0,  0,  0,  0,  0, //
        3,  0,  0,  0,  0, //
        10, 11, 0,  0,  0, //
        11, 12, 9,  0,  0, //
        10, 11, 12, 13, 0, //
    };
    const JoinedTree tree = joined_tree(matrix, {"a", "b", "c c", "d", "e"});
    EXPECT_EQ(tree.text, "((b:2.000000,a:1.000000):3.000000,(d:5.000000,c_c:4.000000):2.000000,e:6.000000);");
    EXPECT_EQ(joined_tree(std::span(matrix).first(4), {"a", "b"}).text, "");
}

} // namespace
} // namespace kq::plain
