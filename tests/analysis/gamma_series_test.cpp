// The carried series store what the series written out term by term store, bit for bit.
#include "analysis/gamma_series.h"
#include "support/plain_distances.h"

#include <gtest/gtest.h>

#include <bit>
#include <random>

using namespace kq;

namespace {

std::uint32_t bits(float value)
{
    return std::bit_cast<std::uint32_t>(value);
}

int up_to(std::mt19937& random, int most)
{
    return static_cast<int>(random() % static_cast<unsigned>(most + 1));
}

constexpr double alphas[] = {1e-7, 0.01, 0.3, 0.5, 0.97, 1, 2.5, 1000};

} // namespace

TEST(GammaSeries, OfOneCountAreTheTermsWrittenOut)
{
    std::mt19937 random(1);
    for (const double alpha : alphas) {
        GammaSeries series(alpha);
        for (int round = 0; round < 200; round++) {
            // Few, many, and (one in eight) more differences than positions; each is asked for twice.
            const int L = up_to(random, round % 3 == 0 ? 20 : 900);
            const int k = round % 8 == 0 ? up_to(random, L + 5) + L / 2 : up_to(random, L / (1 + round % 4));
            SCOPED_TRACE(testing::Message() << "alpha " << alpha << ", k " << k << ", L " << L);
            const auto jukes_cantor = plain::arn_distance({.transitions = k, .compared = L}, 9, alpha);
            const auto protein =
                plain::prot_distance({.weights = static_cast<float>(k), .compared = L}, 6, alpha);
            for (int again = 0; again < 2; again++) {
                ASSERT_EQ(bits(series.jukes_cantor(k, L)), bits(jukes_cantor));
                ASSERT_EQ(bits(series.protein(k, L)), bits(protein));
            }
        }
    }
}

TEST(GammaSeries, OfTwoCountsAreTheTermsWrittenOut)
{
    std::mt19937 random(1);
    for (const double alpha : alphas) {
        GammaSeries series(alpha);
        const auto check = [&](int s, int v, int L) {
            SCOPED_TRACE(testing::Message()
                         << "alpha " << alpha << ", s " << s << ", v " << v << ", L " << L);
            const auto expected =
                plain::arn_distance({.transitions = s, .transversions = v, .compared = L}, 10, alpha);
            ASSERT_EQ(bits(series.kimura(s, v, L)), bits(expected));
        };
        for (int round = 0; round < 80; round++) {
            const int s = up_to(random, round % 3 == 0 ? 5 : 60), v = up_to(random, round % 4 == 0 ? 5 : 60);
            check(s, v, s + v + up_to(random, round % 5 == 0 ? 3 : 800));
            check(s, v, up_to(random, s + v)); // fewer positions than differences
        }
        if (alpha != 0.01 && alpha != 0.5) continue;
        // Products that outgrow a double, and factors that vanish in one.
        check(500, 200, 1400);
        check(450, 330, 1400);
        check(300, 250, 1400);
        check(220, 260, 900);
        check(20, 1030, 1100);
        check(3, 300, 5000);
    }
}
