// The fast search gives what a walk from every start position gives.
#include "editor/similarity_kernel.h"
#include "support/plain_similarity.h"

#include <gtest/gtest.h>

using namespace kq;

namespace {

// Rows of few letters have ties; most of the others hold a changed copy of the pattern, in pieces.
std::string random_row(std::mt19937& random, const std::string& pattern, int length)
{
    static constexpr std::string_view alphabets[] = {"AC", "ACGU*", "ACGU ***", "ACGUacgu-$* ", "* "};
    const auto letters = alphabets[random() % std::size(alphabets)];
    std::string row = plain::random_text(random, letters, length);
    if (random() % 2 == 0 || row.empty()) return row;
    std::size_t p = random() % row.size();
    for (const char c : pattern) {
        while (p < row.size() && random() % 4 == 0)
            row[p++] = "* "[random() % 2];
        if (p < row.size() && random() % 6 != 0) row[p] = c;
        p++;
    }
    return row;
}

} // namespace

TEST(SimilarityKernel, RanksAsThePlainSearchDoes)
{
    for (unsigned seed = 1; seed <= 400; seed++) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        std::mt19937 random(seed);
        const int lengths[] = {0, 1, 5, 40, 127, 128, 129, 300, 1000};
        const auto pattern = plain::random_text(random, "ACGU-a", static_cast<int>(random() % 41));
        std::vector<std::string> texts;
        for (int r = 0; r < 5; r++)
            texts.push_back(random_row(random, pattern, lengths[random() % std::size(lengths)]));
        const std::vector<std::string_view> rows(texts.begin(), texts.end());
        const int columns = static_cast<int>(texts[0].size()), column = static_cast<int>(random() % 300);
        const int window = static_cast<int>(random() % 200);
        const StartRange ranges[] = {{0, columns - static_cast<int>(pattern.size()) + 1},
                                     {column - window, column + window}};
        const auto starts = ranges[random() % 2];

        std::vector<SimilarityHit> best(rows.size(), {.species = 7});
        best_positions(rows, pattern, starts, best);
        for (std::size_t r = 0; r < rows.size(); r++) {
            std::vector<SimilarityHit> ranking(random() % 42, {.score = 99, .position = 99});
            SearchedRow(rows[r]).rank(pattern, starts, ranking);
            const auto expected = plain::similar_positions(rows[r], pattern, starts.first, starts.last,
                                                           static_cast<int>(ranking.size()));
            for (std::size_t i = 0; i < ranking.size(); i++) {
                ASSERT_EQ(ranking[i].score, expected[i].score) << "row " << r << ", place " << i;
                ASSERT_EQ(ranking[i].position, expected[i].position) << "row " << r << ", place " << i;
            }
            const auto first = plain::similar_positions(rows[r], pattern, starts.first, starts.last, 1)[0];
            ASSERT_EQ(best[r], (SimilarityHit{first.score, first.position, 7})) << "row " << r;
        }
    }
}

TEST(SimilarityKernel, TakesThePatternFromARow)
{
    EXPECT_EQ(residues_from("AC* -G$ T", 1, 4), "C-G$");
    EXPECT_EQ(residues_from("AC* -G$ T", 1, 40), "C-G$T");
    EXPECT_EQ(residues_from("AC", 2, 4), "");
}
