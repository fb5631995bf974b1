// Which species and positions an analysis works with.
#include "analysis/analysed.h"
#include "analysis/gap_count.h"
#include "analysis/parameters.h"
#include "analysis/position_removal.h"
#include "editor/editor_test.h"

#include <random>

namespace kq {
namespace {

class PositionRemoval : public test::EditorTest {
protected:
    // The kept positions, as "0 2 5".
    std::string kept(int percent)
    {
        percent_gap = percent;
        elimine_pos_gap();
        EXPECT_EQ(retain.size(), static_cast<std::size_t>(nb_nuc_tot) + 1);
        EXPECT_EQ(retain.back(), end_of_positions);
        std::string text;
        for (const int p : kept_positions())
            text += (text.empty() ? "" : " ") + std::to_string(p);
        EXPECT_EQ(kept_positions().size(), static_cast<std::size_t>(nb_nuc_keep));
        return text;
    }
};

TEST_F(PositionRemoval, PercentIsRoundedDownAndEnsemblesAreListedInOrder)
{
    // One gap of each kind, two gaps, "?" everywhere (which hides nothing), gaps everywhere (hidden).
    load({"A-CCG*?- ", "AC*CG*?*$", "ACC?$ ? -"}, {{2, 0, 1}});
    EXPECT_EQ(kept(0), "0");
    EXPECT_EQ(kept(32), "0");
    EXPECT_EQ(kept(33), "0 1 2 3 4");
    EXPECT_EQ(kept(99), "0 1 2 3 4");
    EXPECT_EQ(kept(100), "0 1 2 3 4 6");
    opt_nogap = 1;
    EXPECT_EQ(kept(100), "0 1 2 3 4 5 6 7 8");
    opt_nogap = 0;

    // Species 1 is in two ensembles; with it counted twice 3 of 4 have a gap at 2 and 3.
    load({"AACC", "AA**", "AA*C", "CCCC"}, {{2, 1}, {1, 0}, {}});
    EXPECT_EQ(kept(74), "0 1 3");
    EXPECT_EQ(kept(75), "0 1 2 3");
    EXPECT_EQ(std::vector<int>(analysed_species().begin(), analysed_species().end()),
              (std::vector<int>{2, 1, 1, 0}));

    // Nothing to analyse, with or without hidden columns.
    load({"AACC"}, {{}});
    for (opt_nogap = 0; opt_nogap < 2; opt_nogap++)
        EXPECT_EQ(kept(100), "");
    opt_nogap = 0;
}

TEST_F(PositionRemoval, TheEditorsHiddenColumnsStay)
{
    load({"A*CC", "A*CG"});
    recompute_hidden(true, 0);
    EXPECT_EQ(kept(100), "0 2 3");
    EXPECT_EQ(nb_nuc, 4);
    EXPECT_EQ(std::vector<int>(delcom, delcom + 4), std::vector<int>(4, column_shown));
}

TEST(GapCount, EqualsAPlainCount)
{
    constexpr unsigned seed = 11;
    std::mt19937 random(seed);
    // Around the sizes of a vector, of a batch of rows and of a block of columns.
    for (const std::size_t rows : {0U, 1U, 256U})
        for (const std::size_t columns : {0U, 1U, 33U, 16384U, 16400U}) {
            std::vector<std::string> texts;
            for (std::size_t i = 0; i < rows; i++) {
                const bool shorter = random() % 4 == 0, longer = random() % 4 == 0;
                std::string text(shorter ? random() % (columns + 1) : columns + (longer ? 7 : 0), ' ');
                for (char& c : text)
                    c = random() % 3 == 0 ? std::string_view(" *?$-\0", 6)[random() % 6]
                                          : static_cast<char>(random() % 256);
                texts.push_back(text);
            }
            std::vector<std::uint32_t> expected(columns, 0);
            for (const std::string& text : texts)
                for (std::size_t c = 0; c < columns; c++)
                    expected[c] += counts_as_gap(c < text.size() ? text[c] : ' ');
            const std::vector<std::string_view> views(texts.begin(), texts.end());
            ASSERT_EQ(count_gaps(views, columns), expected)
                << "seed " << seed << ", " << rows << " x " << columns;
        }
}

} // namespace
} // namespace kq
