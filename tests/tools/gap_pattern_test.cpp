// Aligned rows compared with the residues that they should hold.
#include "tools/gap_pattern.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <random>
#include <string>

namespace kq {
namespace {

// Rows that hold the residues, and rows that differ in one place, at all distances from the ends of words.
TEST(GapPattern, ResiduesAreComparedApartFromTheirCase)
{
    std::mt19937 random(3);
    int different = 0;
    for (int round = 0; round < 20000; round++) {
        std::string residues, aligned;
        for (auto left = random() % 40; left > 0; left--) {
            if (random() % 6 == 0) aligned.append(random() % 20, '-');
            const char c = "ACGTNacgtn"[random() % 10];
            residues += c;
            aligned += random() % 2 ? c : static_cast<char>(c ^ ('a' ^ 'A'));
        }
        aligned.append(random() % 10, '-');
        if (random() % 4 == 0) (random() % 2 ? residues : aligned) += "AC"[random() % 2];
        if (random() % 4 == 0 && !aligned.empty()) aligned[random() % aligned.size()] = "-A"[random() % 2];
        if (random() % 4 == 0 && !residues.empty())
            residues[random() % residues.size()] = "Ca.\x03"[random() % 4];

        std::string held;
        std::ranges::copy_if(aligned, std::back_inserter(held), [](char c) { return c != '-'; });
        const bool equal = std::ranges::equal(held, residues, {}, toupper, toupper);
        ASSERT_EQ(has_residues(aligned, residues), equal) << aligned << '\n' << residues;
        different += !equal;
    }
    EXPECT_GT(different, 5000);
    EXPECT_LT(different, 15000);
}

} // namespace
} // namespace kq
