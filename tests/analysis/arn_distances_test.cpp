// The distances between nucleic acids against the plain versions, which look at one pair of characters after
// the other.
#include "analysis/analysed_fixture.h"
#include "analysis/arn_distances.h"
#include "analysis/arn_formulas.h"
#include "analysis/pair_counts.h"
#include "support/plain_distances.h"

#include <cmath>
#include <numeric>

namespace kq {
namespace {

constexpr unsigned seed = 5;

// What an alignment can hold: bases, gaps, unknown and ambiguous characters; from the keyboard also others.
constexpr std::string_view bases = "ACGTU", read_letters = "AACCGGTTU-*$ ?XN",
                           typed_letters = "ACGTUacgt-*$ NR";

TEST(PairCounts, EqualThePlainOnesWithAnyInstructions)
{
    std::mt19937 random(seed);
    // Around words and blocks, and around what the bytes of the narrower vectors hold.
    for (const std::size_t columns :
         {0U, 1U, 63U, 64U, 65U, 511U, 512U, 513U, 1500U, 3583U, 3585U, 7679U, 7681U, 15000U})
        for (const auto letters : {std::string_view("A"), bases, read_letters, typed_letters}) {
            const auto rows = test::related_rows(random, 4, columns, letters);
            BasePlanes planes(4, static_cast<int>(columns));
            for (int i = 0; i < 4; i++)
                planes.set(i, rows[static_cast<std::size_t>(i)], " ?XRYMWSKVHDBN");
            for (const auto instructions : usable_instructions())
                for (int i = 1; i < 4; i++) {
                    std::vector<PairCounts> counts(static_cast<std::size_t>(i));
                    std::vector<CompositionCounts> compositions(counts.size());
                    count_pairs(planes, i, 0, counts, instructions);
                    count_pairs(planes, i, 0, compositions, instructions);
                    for (std::size_t j = 0; j < counts.size(); j++) {
                        const auto& a = rows[static_cast<std::size_t>(i)];
                        const auto plain = plain::arn_counts(a, rows[j]);
                        const PairCounts expected{plain.compared, plain.transitions, plain.transversions,
                                                  plain.deletions, plain.others};
                        ASSERT_EQ(counts[j], expected)
                            << columns << letters << static_cast<int>(instructions);
                        ASSERT_EQ(tamura_nei(compositions[j], 0.5), plain::tamura_nei(a, rows[j], 0.5))
                            << columns << letters << static_cast<int>(instructions);
                    }
                }
        }
}

class ArnDistances : public test::AnalysedTest {
protected:
    // An analysis of all rows, the last one first, without the given positions.
    void analyse_without(const std::vector<std::size_t>& removed, const std::vector<std::string>& rows)
    {
        load(rows);
        std::vector<int> species(rows.size()), positions;
        std::iota(species.rbegin(), species.rend(), 0);
        for (std::size_t p = 0; p < rows[0].size(); p++)
            if (std::ranges::count(removed, p) == 0) positions.push_back(static_cast<int>(p));
        analyse(species, positions);
        texts_ = kept_texts();
    }

    const std::string& text(int i) const { return texts_[static_cast<std::size_t>(i)]; }
    static float distance(int i, int j) { return dist[cell(i, j, nb_spec_auto)]; }

    void expect_counts() const
    {
        for (int i = 0; i < nb_spec_auto; i++)
            for (int j = 0; j < i; j++) {
                const auto plain = plain::arn_counts(text(i), text(j));
                const auto lower = cell(i, j, nb_spec_auto), upper = cell(j, i, nb_spec_auto);
                ASSERT_EQ(d1[lower], plain.transitions);
                ASSERT_EQ(d1[upper], plain.transversions);
                ASSERT_EQ(d2[lower], plain.deletions);
                ASSERT_EQ(d2[upper], plain.others);
                ASSERT_EQ(dist[upper], static_cast<float>(plain.compared));
            }
    }

    // To the bit, infinite and undefined distances too.
    void expect_distance(int i, int j) const
    {
        const float plain = plain::arn_distance(text(i), text(j), type_dist, alpha), ours = distance(i, j);
        ASSERT_TRUE(ours == plain || (std::isnan(ours) && std::isnan(plain)))
            << type_dist << ": " << ours << ", plain " << plain << "\n"
            << text(i) << "\n"
            << text(j);
        ASSERT_EQ(std::signbit(ours), std::signbit(plain)) << type_dist;
    }

    void expect_distances() const
    {
        for (int i = 0; i < nb_spec_auto; i++)
            for (int j = 0; j < i; j++)
                expect_distance(i, j);
    }

private:
    std::vector<std::string> texts_;
};

TEST_F(ArnDistances, OfAllTypesEqualThePlainOnesOnAnyNumberOfThreads)
{
    std::mt19937 random(seed);
    for (const auto& [letters, shape] : {std::pair{read_letters, 0.5}, std::pair{typed_letters, 3.0}}) {
        const std::size_t columns = 40 + random() % 60;
        analyse_without({0, 7, columns - 1}, test::related_rows(random, 70, columns, letters));
        alpha = shape;
        for (const int threads : {1, 2, 3}) {
            omp_set_num_threads(threads);
            std::fill_n(dist, nb_spec_auto * nb_spec_auto, -1.0F);
            ASSERT_TRUE(compute_diff_arn());
            expect_counts();
            for (type_dist = 0; type_dist < arn_distances; type_dist++) {
                ASSERT_TRUE(compute_dist_arn());
                expect_distances();
            }
            expect_counts(); // still there
        }
    }
}

TEST_F(ArnDistances, OfOnePairAreThoseOfTheMatrix)
{
    std::mt19937 random(seed);
    analyse_without({}, test::related_rows(random, 3, 80, read_letters));
    ASSERT_TRUE(compute_diff_arn());
    const std::pair<int, void (*)(int, int)> one_pair[] = {
        {9, compute_RN94_JC}, {10, compute_RN94_Kimura}, {12, compute_tamura_nei}};
    for (const auto& [type, compute] : one_pair) {
        type_dist = type;
        compute(2, 1);
        expect_distance(2, 1);
        EXPECT_GT(distance(2, 1), 0);
    }
}

TEST_F(ArnDistances, AreZeroWithoutPositionsOrForOneSpecies)
{
    analyse_without({0, 1, 2, 3}, {"ACGT", "ACGA", "TTTT"});
    std::fill_n(dist, 9, -1.0F);
    ASSERT_TRUE(compute_diff_arn());
    for (type_dist = 0; type_dist < arn_distances; type_dist++) {
        ASSERT_TRUE(compute_dist_arn());
        for (const auto& [i, j] : {std::pair{1, 0}, std::pair{2, 0}, std::pair{2, 1}})
            ASSERT_EQ(distance(i, j), 0) << type_dist;
    }
    analyse_without({}, {"ACGT"});
    EXPECT_TRUE(compute_diff_arn());
    EXPECT_TRUE(compute_dist_arn());
}

TEST_F(ArnDistances, StopAtEscape)
{
    std::mt19937 random(seed);
    analyse_without({}, test::related_rows(random, 200, 100, read_letters));
    const auto stops = [this](bool (*compute)()) {
        bool ended = true;
        const auto played = play("early Esc", [&] { ended = compute(); });
        return !ended && played.ending == test::Ending::returned && played.keys_left == 0;
    };
    EXPECT_TRUE(stops(compute_diff_arn));
    ASSERT_TRUE(compute_diff_arn());
    for (type_dist = 0; type_dist < arn_distances; type_dist++)
        EXPECT_TRUE(stops(compute_dist_arn)) << type_dist;
    EXPECT_EQ(line(13), ""); // no box is left
}

} // namespace
} // namespace kq
