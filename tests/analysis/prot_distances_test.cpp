// Distances between proteins are those of the plain comparison, bit for bit, whatever counts them.
#include "analysis/analysed.h"
#include "analysis/distance_matrix.h"
#include "analysis/parameters.h"
#include "analysis/prot_counts.h"
#include "analysis/prot_distances.h"
#include "analysis/weight_matrix.h"
#include "core/lifecycle.h"
#include "core/store.h"
#include "support/model.h"
#include "support/plain_distances.h"
#include "support/plain_similarity.h"
#include "support/screen_test.h"

#include <omp.h>

#include <bit>
#include <numeric>

using namespace kq;
using test::Ending;

namespace {

// Amino acids, gaps, unknowns, and characters without a code.
constexpr std::string_view characters = "ACDEFGHIKLMNPQRSTVWYACDEFGHIKLMNPQRSTVWY-*$ ?XBZJOUacy\xff";

// Sequences that share many positions; long runs of gaps and unknowns.
std::vector<std::string> random_rows(std::mt19937& random, int species, int positions)
{
    const auto ancestor = plain::random_text(random, characters, positions);
    std::vector<std::string> rows(static_cast<std::size_t>(species), ancestor);
    for (auto& row : rows)
        for (std::size_t p = 0, changes = random() % 3; p < row.size(); p++) {
            if (random() % 3 < changes) row[p] = characters[random() % characters.size()];
            if (random() % 100 == 0) p += random() % 40;
            if (random() % 300 == 0)
                for (std::size_t run = random() % 50; run > 0 && p < row.size(); run--)
                    row[p++] = "-X"[random() % 2];
        }
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

class ProtDistances : public test::ScreenTest {
protected:
    ~ProtDistances() override
    {
        libere_memoire_dist();
        analysed_reset();
        parameters_reset();
        alignment_reset();
        omp_set_num_threads(omp_get_num_procs());
    }

    // All species, and about nine of ten positions.
    void analyse(std::mt19937& random, const std::vector<std::string>& rows)
    {
        libere_memoire_dist();
        model_ = {.type = 1, .rows = rows};
        model_.columns = static_cast<int>(rows[0].size());
        for (auto& row : model_.rows)
            if (random() % 4 == 0) row.resize(random() % (row.size() + 1)); // blanks follow
        model_.load();
        nb_spec_auto = nb_spec;
        std::iota(cor_auto.begin(), cor_auto.begin() + nb_spec, 0);
        retain.clear();
        for (int p = 0; p < nb_nuc_tot; p++)
            retain.push_back(random() % 10 == 0 ? position_removed : position_kept);
        nb_nuc_keep = static_cast<int>(std::ranges::count(retain, position_kept));
        retain.push_back(end_of_positions);
        name_distances(type_seq);
        ASSERT_EQ(alloue_memoire_dist(), 0);
    }
    std::vector<std::string> kept_texts() const
    {
        std::vector<std::string> texts(model_.rows.size());
        for (int p = 0; p < nb_nuc_tot; p++)
            for (std::size_t i = 0; i < texts.size(); i++)
                if (retain[static_cast<std::size_t>(p)] == position_kept)
                    texts[i] += model_.at(static_cast<int>(i), p);
        return texts;
    }
    bool compute(std::string_view keys = "")
    {
        bool ended = false;
        EXPECT_EQ(play(keys, [&] { ended = compute_dist_prot(); }).ending, Ending::returned);
        return ended;
    }

    test::PlainModel model_;
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
        analyse(random, random_rows(random, species, static_cast<int>(random() % 500)));
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
    analyse(random, random_rows(random, 5, 40));
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
