// Analyses of random alignments: every distance, bit by bit, and every file, byte by byte, are those of the
// plain version.
#include "analysis/analysed.h"
#include "analysis/analysis_run.h"
#include "analysis/arn_distances.h"
#include "analysis/distance_matrix.h"
#include "analysis/output_names.h"
#include "analysis/outputs.h"
#include "analysis/parameters.h"
#include "analysis/phylip_names.h"
#include "analysis/position_removal.h"
#include "analysis/prot_distances.h"
#include "random_analysis.h"

#include <omp.h>

#include <bit>

namespace kq {
namespace {

// "", or the first line in which two texts differ.
std::string difference(const std::string& actual, const std::string& expected)
{
    const auto [at, other] = std::ranges::mismatch(actual, expected);
    if (at == actual.end() && other == expected.end()) return "";
    const auto from = static_cast<std::size_t>(at - actual.begin());
    const auto start = from == 0 ? 0 : expected.rfind('\n', from - 1) + 1;
    const auto line = [start](const std::string& text) {
        return text.substr(start, text.find('\n', start) - start);
    };
    return text_format("line %td\n  is \"%s\"\n  not \"%s\"", std::count(actual.begin(), at, '\n') + 1,
                       line(actual).c_str(), line(expected).c_str());
}

void scale_weights(plain::Weights& weights, double factor)
{
    for (auto& row : weights)
        for (double& weight : row)
            weight *= factor;
}

class WholeRun : public test::AnalysisTest {
public:
    ~WholeRun() override
    {
        omp_set_num_threads(omp_get_num_procs());
        libere_memoire_dist();
    }

protected:
    // The parameters, species and positions of a run; false when no position is kept.
    bool prepare(const plain::Analysis& analysis)
    {
        load_analysis(analysis);
        percent_gap = analysis.percent;
        alpha = analysis.shape;
        libere_memoire_dist();
        elimine_pos_gap();
        name_distances(type_seq);
        nb_matrice = nb_sequence = 0;
        return nb_nuc_keep > 0 && alloue_memoire_dist() == 0;
    }

    // Compares all of dist, bit by bit, with the distances of the type.
    static void expect_distances(const plain::Analysis& analysis, const std::string& where)
    {
        const auto positions = kept_positions();
        std::vector<std::string> rows(static_cast<std::size_t>(nb_spec_auto));
        for (std::size_t i = 0; i < rows.size(); i++)
            kept_characters(cor_auto[i], positions, rows[i]);
        plain::Weights weights = analysis.identity;
        scale_weights(weights, type_dist == 2 ? nocons_scale : type_dist == 3 ? cons_scale : 1);
        for (int i = 1; i < nb_spec_auto; i++)
            for (int j = 0; j < i; j++) {
                const auto &a = rows[static_cast<std::size_t>(i)], &b = rows[static_cast<std::size_t>(j)];
                const float actual = dist[cell(i, j, nb_spec_auto)];
                const float expected = type_seq ? plain::prot_distance(a, b, type_dist, alpha, weights)
                                                : plain::arn_distance(a, b, type_dist, alpha);
                ASSERT_EQ(std::bit_cast<unsigned>(actual), std::bit_cast<unsigned>(expected))
                    << where << text_format(": dist(%d, %d) is %.9g, not %.9g", i, j, actual, expected)
                    << "\n"
                    << a << "\n"
                    << b;
            }
    }

    plain::Files run(const plain::Analysis& analysis)
    {
        load_analysis(analysis);
        // Through the box of the parameters, and past every warning.
        const auto keys =
            text_format("BackSpace \"%d\" Enter BackSpace \"%d\" Enter BackSpace*4 \"%.9g\" Enter Q*9",
                        analysis.level, analysis.percent, analysis.shape);
        EXPECT_EQ(play(keys, [] { tout_auto(); }).ending, test::Ending::returned);
        return take_files();
    }

    void write(const std::string& extension, bool (*writer)())
    {
        nomfic = with_extension(nomfic, extension);
        EXPECT_TRUE(writer());
    }

    static void expect_equal(const plain::Files& files, const plain::Files& expected)
    {
        for (const auto& [name, text] : expected)
            ASSERT_TRUE(files.contains(name)) << name << " was not written";
        for (const auto& [name, text] : files) {
            ASSERT_TRUE(expected.contains(name)) << name << " was written";
            ASSERT_EQ(difference(text, expected.at(name)), "") << name;
        }
    }
};

TEST_F(WholeRun, WritesTheFilesOfThePlainVersion)
{
    for (unsigned seed = 1; seed <= 60 && !HasFatalFailure(); seed++) {
        SCOPED_TRACE(text_format("seed %u", seed));
        omp_set_num_threads(1 + static_cast<int>(seed % 2));
        const plain::Analysis analysis = test::RandomAnalysis(seed).make();
        expect_equal(run(analysis), plain::analysis_files(analysis));
    }
}

TEST_F(WholeRun, EveryDistanceIsThatOfThePlainVersion)
{
    for (unsigned seed = 1; seed <= 40 && !HasFatalFailure(); seed++) {
        plain::Analysis analysis = test::RandomAnalysis(seed).make();
        if (seed % 4 == 0) scale_weights(analysis.identity, 2); // more than one difference a position
        if (!prepare(analysis)) continue;
        omp_set_num_threads(1 + static_cast<int>(seed % 2));
        const bool prot = type_seq != 0;
        ASSERT_TRUE(prot || compute_diff_arn());
        for (type_dist = 0; type_dist < (prot ? prot_distances : arn_distances); type_dist++) {
            if (!prot && type_dist == 10 && nb_nuc_keep > 150) continue; // the plain version takes too long
            ASSERT_TRUE(prot ? compute_dist_prot() : compute_dist_arn());
            expect_distances(analysis, text_format("seed %u, type %d", seed, type_dist));
        }
    }
}

TEST_F(WholeRun, WritersWithoutACommandFollowThePlainVersion)
{
    for (unsigned seed = 1; seed <= 40 && !HasFatalFailure(); seed++) {
        SCOPED_TRACE(text_format("seed %u", seed));
        plain::Analysis analysis = test::RandomAnalysis(seed).make();
        if (!prepare(analysis)) continue;
        creer_ident_phylip();
        nomfic = "x.";
        write(".pir", write_pir);
        write(".msf", write_msf);
        write(".afas", write_afas);
        expect_equal(take_files(), {{"x.pir", plain::pir_file(analysis)},
                                    {"x.msf", plain::msf_file(analysis, "x.msf")},
                                    {"x.afas", plain::aligned_fasta_file(analysis)}});
        // Names that NEXUS would misread are quoted; the plain version knows nothing of that.
        analysis.file = "x.ali";
        for (auto& species : analysis.species)
            std::ranges::replace(species.identifier, '\'', 'y');
        analysis.percent = 100;
        if (!prepare(analysis)) continue;
        nb_sequence = 98 + static_cast<int>(seed % 4);
        const int number = nb_sequence;
        EXPECT_TRUE(write_file_NB('s'));
        write(".nex", write_nexus_file);
        expect_equal(take_files(), plain::nexus_files(analysis, number));
    }
}

} // namespace
} // namespace kq
