// The fast neighbour joining beside the plain one, bit for bit.
#include "analysis/joining.h"
#include "support/plain_joining.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <functional>
#include <limits>
#include <random>
#include <string>
#include <vector>

namespace kq {
namespace {

using Random = std::mt19937;
// The distance of species i > j.
using Distance = std::function<float(int i, int j)>;

std::vector<float> matrix_of(int n, const Distance& distance)
{
    std::vector<float> matrix(static_cast<std::size_t>(n * n), 7); // of no meaning above the diagonal
    for (int i = 0; i < n; i++)
        for (int j = 0; j < i; j++)
            matrix[static_cast<std::size_t>(i * n + j)] = distance(i, j);
    return matrix;
}

// One join a line; every bit of the lengths counts.
std::string described(const std::vector<plain::Join>& joins, double last_length)
{
    std::string text;
    const auto bits = [](double length) {
        return std::to_string(length) + " " + std::to_string(std::bit_cast<std::uint64_t>(length));
    };
    for (const auto& join : joins)
        text += std::to_string(join.first) + " " + std::to_string(join.second) + " " +
                bits(join.first_length) + " " + bits(join.second_length) + "\n";
    return text + bits(last_length);
}

void expect_plain_tree(const std::vector<float>& matrix, int n, const std::string& what)
{
    const auto plain = plain::joined_tree(matrix, std::vector<std::string>(static_cast<std::size_t>(n)));
    auto copy = matrix;
    const auto fast = join_neighbors(copy.data(), n, [](std::int64_t) { return true; });
    ASSERT_TRUE(fast);
    std::vector<plain::Join> joins;
    for (const Join& join : fast->joins)
        joins.push_back({join.nei1, join.nei2, join.length1, join.length2});
    ASSERT_EQ(described(joins, fast->last_length), described(plain.joins, plain.third_length))
        << what << ", " << n << " species";
    for (int i = 0; i < n; i++)
        for (int j = i; j < n; j++)
            ASSERT_EQ(copy[static_cast<std::size_t>(i * n + j)], 7) << "above the diagonal";
}

float uniform(Random& random, float low, float high)
{
    return std::uniform_real_distribution<float>(low, high)(random);
}

// Path lengths of a random tree whose branches are 0.3 times 0 to 8: additive, and full of ties.
std::vector<float> additive(Random& random, int n)
{
    std::vector<std::vector<float>> paths{{0}};
    const auto leaf = [&] {
        std::vector<float> to = paths[random() % paths.size()];
        for (float& length : to)
            length += 0.3F * static_cast<float>(random() % 9);
        return to;
    };
    while (static_cast<int>(paths.size()) < n) {
        auto to = leaf();
        for (std::size_t k = 0; k < paths.size(); k++)
            paths[k].push_back(to[k]);
        to.push_back(0);
        paths.push_back(std::move(to));
    }
    return matrix_of(
        n, [&](int i, int j) { return paths[static_cast<std::size_t>(i)][static_cast<std::size_t>(j)]; });
}

// Percentages of differences of random sequences over four letters, related and partly the same.
std::vector<float> percentages(Random& random, int n, int columns)
{
    std::vector<std::string> rows{std::string(static_cast<std::size_t>(columns), 'A')};
    while (static_cast<int>(rows.size()) < n) {
        rows.push_back(rows[random() % rows.size()]);
        for (auto changes = random() % 3; changes > 0; changes--)
            rows.back()[random() % rows.back().size()] = "ACGU"[random() % 4];
    }
    std::shuffle(rows.begin(), rows.end(), random);
    return matrix_of(n, [&](int i, int j) {
        int different = 0;
        for (std::size_t p = 0; p < static_cast<std::size_t>(columns); p++)
            different += rows[static_cast<std::size_t>(i)][p] != rows[static_cast<std::size_t>(j)][p];
        return static_cast<float>(different) * (100.0F / static_cast<float>(columns));
    });
}

struct Kind {
    const char* name;
    std::function<std::vector<float>(Random& random, int n)> matrix;
};

std::vector<float> each(Random& random, int n, const std::function<float(Random&)>& distance)
{
    return matrix_of(n, [&](int, int) { return distance(random); });
}

// Distances that are now and then one of `odd`.
std::vector<float> with_odd(Random& random, int n, const std::vector<float>& odd)
{
    const auto one_in = static_cast<unsigned>(n * n / (1 + static_cast<int>(random() % 8)) + 1);
    return each(random, n, [&](Random& from) {
        return from() % one_in == 0 ? odd[from() % odd.size()] : uniform(from, 0, 2);
    });
}

// Ties of sums that are rounded and depend on the order.
std::vector<float> few_magnitudes(Random& random, int n)
{
    return each(random, n, [](Random& from) {
        const float sign = from() % 2 == 0 ? -1 : 1;
        return sign * std::array{1e9F, 1.0F, 1e-9F}[from() % 3] / 3;
    });
}

constexpr float infinite = std::numeric_limits<float>::infinity();
const float undefined = -std::abs(std::numeric_limits<float>::quiet_NaN());

const Kind kinds[] = {
    {"random", [](Random& r, int n) { return each(r, n, [](Random& from) { return uniform(from, 0, 1); }); }},
    {"nearly equal",
     [](Random& r, int n) { return each(r, n, [](Random& from) { return uniform(from, 0.999F, 1); }); }},
    {"few values",
     [](Random& r, int n) {
         return each(r, n, [](Random& from) { return static_cast<float>(from() % 3) / 3; });
     }},
    {"equal", [](Random&, int n) { return matrix_of(n, [](int, int) { return 0.1F; }); }},
    {"additive", additive},
    {"percentages of 30", [](Random& r, int n) { return percentages(r, n, 30); }},
    {"pairs of the same, apart",
     [](Random& r, int n) {
         auto matrix = percentages(r, n, 12);
         return matrix_of(n, [&](int i, int j) {
             return i / 2 == j / 2 ? 1.7F : matrix[static_cast<std::size_t>((i / 2) * n + j / 2)] + 50;
         });
     }},
    {"of all magnitudes",
     [](Random& r, int n) {
         return each(r, n, [](Random& from) { return std::pow(10.0F, uniform(from, -30, 10)); });
     }},
    {"pairs of the same of three magnitudes",
     [](Random& r, int n) {
         const auto matrix = few_magnitudes(r, n);
         return matrix_of(n, [&](int i, int j) {
             return i / 2 == j / 2 ? 1.7F : matrix[static_cast<std::size_t>(i / 2 * n + j / 2)];
         });
     }},
    {"at the edge of exact sums", // halves of the small ones are beyond it
     [](Random& r, int n) {
         const float large = std::exp2(static_cast<float>(r() % 30)), small = std::exp2(-24.0F);
         return each(r, n, [=](Random& from) {
             return (from() % 2 == 0 ? large : small) * static_cast<float>(1 + from() % 4);
         });
     }},
    {"a sum one unit beyond exact ones", // of eight species
     [](Random&, int n) {
         auto matrix = matrix_of(n, [](int, int j) { return j < 2 ? 0x3p50F : 0; });
         const struct {
             int i, j;
             float distance;
         } odd[] = {{1, 0, -0x3p48F}, {2, 1, 0x1p51F}, {3, 1, 0x3p53F}, {3, 2, 2}, {5, 1, -0x3p53F}};
         for (const auto& cell : odd)
             if (cell.i < n) matrix[static_cast<std::size_t>(cell.i * n + cell.j)] = cell.distance;
         return matrix;
     }},
    {"enormous",
     [](Random& r, int n) { return each(r, n, [](Random& from) { return uniform(from, -3e38F, 3e38F); }); }},
    {"infinite or undefined",
     [](Random& r, int n) {
         return with_odd(r, n, {infinite, infinite, -infinite, undefined});
     }},
};

TEST(Joining, GivesThePlainTree)
{
    Random random(20240607);
    for (const Kind& kind : kinds)
        for (const int n : {3, 4, 5, 6, 7, 8, 13, 31, 65, 90, 240})
            for (int repeat = n < 20 ? 10 : n < 100 ? 3 : 1; repeat > 0; repeat--) {
                expect_plain_tree(kind.matrix(random, n), n, kind.name);
                if (HasFatalFailure()) return;
            }
}

TEST(Joining, StopsWhereverTheReportSaysSo)
{
    Random random(5);
    const int n = 2500;
    const auto matrix = each(random, n, [](Random& from) { return uniform(from, 0, 1); });
    for (const int reports : {1, 2, 5}) {
        auto copy = matrix;
        int left = reports;
        EXPECT_FALSE(join_neighbors(copy.data(), n, [&](std::int64_t) { return --left > 0; }));
        EXPECT_EQ(left, 0);
    }
}

} // namespace
} // namespace kq
