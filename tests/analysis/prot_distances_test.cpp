// Distances between proteins are those of the plain comparison, bit for bit, whatever counts them.
#include "analysis/analysed_fixture.h"
#include "analysis/prot_counts.h"
#include "analysis/prot_distances.h"
#include "analysis/weight_matrix.h"
#include "support/plain_distances.h"

#include <bit>
#include <numeric>

using namespace kq;
using test::Ending;

namespace {

// Amino acids, gaps, unknowns, and characters without a code.
constexpr std::string_view characters = "ACDEFGHIKLMNPQRSTVWYACDEFGHIKLMNPQRSTVWY-*$ ?XBZJOUacy\xff";

// Related sequences with long runs of gaps and unknowns.
std::vector<std::string> random_rows(std::mt19937& random, int species, int positions)
{
    auto rows = test::related_rows(random, species, static_cast<std::size_t>(positions), characters);
    for (auto& row : rows)
        for (std::size_t p = random() % 300; p < row.size(); p += random() % 300)
            for (std::size_t run = random() % 50; run > 0 && p < row.size(); run--)
                row[p++] = "-X"[random() % 2];
    return rows;
}

enum Kind { ones, zeros, groups, within_groups, any_bits, fractions, integers, kinds };

ProtWeights random_weights(std::mt19937& random, int kind)
{
    ProtWeights weights;
    for (std::size_t x = 0; x < amino_acids; x++)
        for (std::size_t y = 0; y < amino_acids; y++)
            weights[x][y] = kind == ones || kind == zeros ? kind == ones
                            : kind == groups              ? x % 6 != y % 6
                            : kind == within_groups       ? x % 6 == y % 6
                            : kind == any_bits            ? static_cast<double>(random() % 2)
                            : kind == fractions           ? static_cast<double>(random() % 2000) / 1e3 - 0.2
                                                          : static_cast<double>(random() % 40);
    return weights;
}

std::string text_of(const ProtWeights& weights)
{
    std::string text;
    for (const auto& row : weights)
        for (const double weight : row)
            text += std::to_string(weight) + (&weight == &row.back() ? "\n" : " ");
    return text;
}

class ProtDistances : public test::AnalysedTest {
protected:
    // All species, some of which end early, and about nine of ten positions.
    void analyse_most(std::mt19937& random, const std::vector<std::string>& rows)
    {
        load(rows, {}, test::protein);
        std::vector<int> species(rows.size()), positions;
        std::iota(species.begin(), species.end(), 0);
        for (const int s : species)
            if (random() % 4 == 0) replace_text(s, sequence(s).substr(0, random() % (rows[0].size() + 1)));
        for (int p = 0; p < nb_nuc_tot; p++)
            if (random() % 10 != 0) positions.push_back(p);
        analyse(species, positions);
    }
    bool compute(std::string_view keys = "")
    {
        bool ended = false;
        EXPECT_EQ(play(keys, [&] { ended = compute_dist_prot(); }).ending, Ending::returned);
        return ended;
    }
};

} // namespace

TEST(ProtCounts, AreThoseOfTheLookUpOnAllInstructions)
{
    for (unsigned seed = 1; seed <= 2 * kinds; seed++) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        std::mt19937 random(seed);
        // Around the sizes of words and blocks, and more than the counts of a byte hold.
        const int lengths[] = {0, 1, 7, 63, 64, 65, 511, 512, 513, 1500, 3600, 8200};
        const int species = 40, positions = lengths[random() % std::size(lengths)];
        const auto rows = random_rows(random, species, positions);
        const auto weights = random_weights(random, static_cast<int>(seed) % kinds);
        ComparedProteins proteins(species, positions, weights, " ?X");
        for (int i = 0; i < species; i++)
            proteins.set(i, rows[static_cast<std::size_t>(i)]);
        for (const auto instructions : usable_instructions())
            for (int i = 0; i < species; i += 5) {
                const int first = i % 2 == 0 ? 0 : static_cast<int>(random() % 36);
                std::vector<ProtCounts> counts(static_cast<std::size_t>(species - first));
                proteins.count(i, first, counts, instructions);
                for (int j = first; j < species; j++) {
                    const auto expected = plain::prot_counts(rows[static_cast<std::size_t>(i)],
                                                             rows[static_cast<std::size_t>(j)], weights);
                    ASSERT_EQ(counts[static_cast<std::size_t>(j - first)],
                              (ProtCounts{expected.compared, expected.gaps, expected.weights}))
                        << "species " << i << " and " << j << " of " << positions << " positions";
                }
            }
    }
}

TEST_F(ProtDistances, AreThoseOfThePlainComparisonOnAnyNumberOfThreads)
{
    const std::string shipped = KQ_SOURCE_DIRECTORY "/demo/ZOLTEXE/zoltexe/";
    for (unsigned seed = 1; seed <= 3; seed++) {
        std::mt19937 random(seed);
        const int species = seed == 1 ? 2 : 40; // one block of pairs, and more than a block
        analyse_most(random, random_rows(random, species, static_cast<int>(random() % 500)));
        const auto texts = kept_texts();
        alpha = seed % 2 == 0 ? 0.5 : 1.7;
        for (type_dist = 0; type_dist < prot_distances; type_dist++) {
            const auto name = weight_matrix_name(type_dist);
            write_file("zoltexe/" + name, seed == 3 ? text_of(random_weights(random, fractions))
                                                    : test::read_bytes(shipped + name));
            const auto weights = read_weight_matrix(path("zoltexe/" + name)).weights;
            const auto bits = [](float distance) { return std::bit_cast<std::uint32_t>(distance); };
            std::vector<std::uint32_t> expected;
            for (std::size_t i = 1; i < texts.size(); i++)
                for (std::size_t j = 0; j < i; j++)
                    expected.push_back(
                        bits(plain::prot_distance(texts[i], texts[j], type_dist, alpha, weights)));
            for (const int threads : {1, 2}) {
                omp_set_num_threads(threads);
                ASSERT_TRUE(compute());
                for (int i = 1, pair = 0; i < species; i++)
                    for (int j = 0; j < i; j++, pair++)
                        ASSERT_EQ(bits(dist[cell(i, j, species)]), expected[static_cast<std::size_t>(pair)])
                            << "seed " << seed << ", type " << type_dist << ", pair " << i << ", " << j
                            << ", threads " << threads;
            }
            compute_dist_prot_int(row(1).data(), row(0).data());
            ASSERT_EQ(bits(dist2), expected[0]) << "seed " << seed << ", type " << type_dist;
        }
    }
}

TEST_F(ProtDistances, AreNotComputedWithoutWeightsNorAfterEscape)
{
    std::mt19937 random(1);
    analyse_most(random, random_rows(random, 5, 40));
    EXPECT_FALSE(compute("Q"));
    write_file("zoltexe/IDENTITE.MAT", "0 1 1");
    play("", [] { compute_dist_prot(); });
    EXPECT_TRUE(shows("Number 4 of the 400 weights in"));
    EXPECT_FALSE(compute("Q"));
    write_file("zoltexe/IDENTITE.MAT", text_of(random_weights(random, ones)));
    EXPECT_FALSE(compute("early Esc"));
    EXPECT_TRUE(compute());
    EXPECT_FALSE(shows("distances")); // the box is gone
}
