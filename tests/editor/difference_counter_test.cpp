// The counter of EST mode against the plain walk over the columns.
#include "editor/difference_counter.h"
#include "support/plain_reference.h"

#include <gtest/gtest.h>

#include <random>

using namespace kq;

TEST(DifferenceCounter, EqualsThePlainWalk)
{
    std::mt19937 random(4);
    for (int round = 0; round < 3000; round++) {
        const auto columns = round % 40 == 0 ? 1000 + random() % 3000 : 1 + random() % 80;
        const std::string letters = round % 3 ? "AC" : "ACGTacgt *- ";
        std::string a(columns - random() % columns, ' '), b(columns - random() % columns, ' ');
        for (auto* text : {&a, &b})
            for (char& c : *text)
                c = letters[random() % letters.size()];
        if (round % 5 == 0) b = a.substr(0, a.size() / 2) + b;
        b.resize(std::min(b.size(), columns));
        std::vector<unsigned char> hidden(columns);
        for (auto& flag : hidden)
            flag = random() % 4 ? 0 : 255;
        for (const auto position : {0UL, random() % columns, columns - 1}) {
            const int p = static_cast<int>(position);
            const auto fast = count_differences_beside(a, b, hidden, p);
            const auto plain = plain::differences_beside(a, b, hidden, p);
            ASSERT_TRUE(fast == plain) << a << "\n" << b << "\nat " << p << ", round " << round;
        }
    }
}
