// Analyses of random alignments: every file is, byte by byte, that of the plain version.
#include "analysis/analysed.h"
#include "analysis/analysis_run.h"
#include "analysis/distance_matrix.h"
#include "analysis/output_names.h"
#include "analysis/outputs.h"
#include "analysis/parameters.h"
#include "analysis/phylip_names.h"
#include "analysis/position_removal.h"
#include "random_analysis.h"

#include <omp.h>

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
    for (unsigned seed = 1; seed <= 40 && !HasFatalFailure(); seed++) {
        SCOPED_TRACE(text_format("seed %u", seed));
        omp_set_num_threads(1 + static_cast<int>(seed % 2));
        const plain::Analysis analysis = test::RandomAnalysis(seed).make();
        expect_equal(run(analysis), plain::analysis_files(analysis));
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
