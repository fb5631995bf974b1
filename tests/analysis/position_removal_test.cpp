// Which species and positions an analysis works with.
#include "analysis/analysed.h"
#include "analysis/gap_count.h"
#include "analysis/parameters.h"
#include "analysis/position_removal.h"
#include "editor/editor_test.h"

#include <random>

namespace kq {
namespace {

using PositionRemoval = test::EditorTest;

TEST_F(PositionRemoval, TheEditorsHiddenColumnsStay)
{
    load({"A*CC", "A*CG"});
    recompute_hidden(true, 0);
    percent_gap = 100;
    elimine_pos_gap();
    EXPECT_EQ(kept_positions(), (std::vector{0, 2, 3}));
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
