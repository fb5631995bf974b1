// The fast text kernels against plain loops.
#include "core/alphabet.h"
#include "core/multi_search.h"
#include "core/residues.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

using namespace kq;

TEST(Alphabet, EveryByteAtEveryPlace)
{
    for (const int type : {0, 1}) {
        const std::string_view alphabet = type ? alphabet_prot : alphabet_arn;
        for (int byte = 0; byte < 256; byte++) {
            const char c = static_cast<char>(byte);
            const char folded = c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c;
            const bool accepted = alphabet.find(folded) != std::string_view::npos;
            for (const std::size_t length : {1U, 15U, 16U, 17U, 32U, 33U})
                for (const std::size_t place : {std::size_t{0}, length / 2, length - 1}) {
                    std::string text(length, 'A');
                    text[place] = c;
                    ASSERT_EQ(first_outside_alphabet(text, type), accepted ? length : place)
                        << "byte " << byte << " at " << place << " of " << length;
                }
        }
        EXPECT_EQ(first_outside_alphabet("", type), 0U);
    }
}

TEST(MultiSearch, FindsWhatPlainSearchFinds)
{
    constexpr unsigned seed = 7;
    std::mt19937 random(seed);
    for (int round = 0; round < 300; round++) {
        // A small alphabet makes patterns overlap, contain and repeat each other, a large one makes many
        // nodes.
        const auto letters = round % 3 ? 3 : 1 + random() % 200;
        const auto word = [&](std::size_t longest) {
            std::string text(random() % (longest + 1), 'a');
            for (char& c : text)
                c = static_cast<char>('a' + random() % letters);
            return text;
        };
        std::vector<std::string> pattern_texts, texts;
        for (auto left = 10 + random() % 100; left > 0; left--)
            pattern_texts.push_back(word(6));
        for (int i = 0; i < 12; i++)
            texts.push_back(word(14));
        const std::vector<std::string_view> patterns(pattern_texts.begin(), pattern_texts.end());
        const std::vector<std::string_view> haystacks(texts.begin(), texts.end());
        const auto found = first_containing(patterns, haystacks);
        for (std::size_t p = 0; p < patterns.size(); p++) {
            int expected = -1;
            for (std::size_t t = texts.size(); t-- > 0;)
                if (!patterns[p].empty() && texts[t].find(patterns[p]) != std::string::npos)
                    expected = static_cast<int>(t);
            ASSERT_EQ(found[p], expected) << "seed " << seed << " round " << round << " " << patterns[p];
        }
    }
}
