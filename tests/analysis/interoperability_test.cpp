// The files of a whole run on the demo, read by programs that know nothing of this one.
#include "analysis/analysed.h"
#include "analysis/analysis_run.h"
#include "analysis/distance_matrix.h"
#include "analysis/output_names.h"
#include "analysis/outputs.h"
#include "analysis/parameters.h"
#include "analysis/phylip_names.h"
#include "analysis/position_removal.h"
#include "core/ali_reader.h"
#include "core/work_buffer.h"
#include "random_analysis.h"
#include "screen/directories.h"
#include "screen/process.h"

#include <cstdlib>
#include <ostream>
#include <set>
#include <sstream>

namespace kq {
namespace {

namespace fs = std::filesystem;
using Strings = std::vector<std::string>;

// A sequence, as it was written or as it was read.
struct Named {
    std::string name, sequence;
    bool operator==(const Named&) const = default;
    friend void PrintTo(const Named& named, std::ostream* stream)
    {
        *stream << named.name << ' ' << named.sequence;
    }
};
using Sequences = std::vector<Named>;

std::string replaced(std::string text, std::string_view from, char to)
{
    for (char& c : text)
        if (from.find(c) != std::string_view::npos) c = to;
    return text;
}

std::string without(std::string text, std::string_view characters)
{
    std::erase_if(text, [characters](char c) { return characters.find(c) != std::string_view::npos; });
    return text;
}

struct DemoSet {
    const char* name;
    const char* phyml_type;
};

class Interoperability : public test::AnalysisTest, public testing::WithParamInterface<DemoSet> {
public:
    ~Interoperability() override { libere_memoire_dist(); }

protected:
    // A run on twelve species at level 3; then species and positions as they were in it.
    void SetUp() override
    {
        // Every test reads with it what the others have made of a file.
        if (!fs::exists("/usr/lib/python3/dist-packages/Bio"))
            GTEST_SKIP() << "python3-biopython is not installed";
        const std::string demo = KQ_SOURCE_DIRECTORY "/demo/";
        file_ALI = "x.ali";
        fs::copy(demo + "ZOLT/seq/" + GetParam().name + ".ali", dir_SEQ + file_ALI);
        fs::copy(demo + "ZOLTEXE/zoltexe/IDENTITE.MAT", dir_ZOLTEXE + "IDENTITE.MAT");
        allocate_buffer();
        ASSERT_TRUE(store_allocate());
        ASSERT_EQ(load_ali(dir_SEQ + file_ALI, check_ali(dir_SEQ + file_ALI)), "");
        set_members(0, species_for_every_reader());
        const auto played = play("BackSpace \"3\" Enter BackSpace \"20\" Enter Enter", [] { tout_auto(); });
        ASSERT_EQ(played.ending, test::Ending::returned);
        elimine_pos_gap();
        ASSERT_EQ(nb_spec_auto, 12);
        ASSERT_GT(nb_nuc_keep, 60);
        setenv("PHYMLMPI", "no", 1); // Debian's start script for phyml leaves out MPI then
    }

    // Names of two words of which the first is in no other name: some readers end a name at its blank, and
    // refuse equal names.
    static std::vector<int> species_for_every_reader()
    {
        std::vector<int> chosen;
        std::set<std::string_view> genera;
        for (int s = 0; s < nb_spec && chosen.size() < 12; s++) {
            const auto name = identifier(s);
            if (std::ranges::count(name, ' ') == 1 && genera.insert(name.substr(0, name.find(' '))).second)
                chosen.push_back(s);
        }
        return chosen;
    }

    static bool installed(const std::string& program) { return fs::exists("/usr/bin/" + program); }

    // Runs it in the working directory, which no command of it leaves. What it printed.
    std::string output_of(const Strings& argument_vector) const
    {
        const RunResult result = run_program(argument_vector, {.output = "output", .error = "errors"});
        const std::string printed = read_file("work/output");
        EXPECT_TRUE(result.succeeded()) << run_problem(argument_vector[0], result) << "\n"
                                        << printed << read_file("work/errors");
        return printed;
    }

    // What BioPython reads in a file.
    Strings read_back(const std::string& format, const std::string& file) const
    {
        Strings lines;
        std::istringstream text(output_of(
            {"/usr/bin/python3", KQ_SOURCE_DIRECTORY "/tests/analysis/read_back.py", format, file}));
        for (std::string line; std::getline(text, line);)
            lines.push_back(line);
        return lines;
    }
    Sequences read_sequences(const std::string& format, const std::string& file) const
    {
        Sequences read;
        for (const std::string& line : read_back(format, file))
            read.push_back({line.substr(0, line.find('\t')), line.substr(line.find('\t') + 1)});
        return read;
    }
    std::multiset<std::string> leaves(const std::string& file) const
    {
        const Strings names = read_back("newick", file);
        return {names.begin(), names.end()};
    }

    // What clustalw reads in a file, by way of the FASTA file that it makes of it; unaligned, because it
    // leaves out what it does not know.
    Sequences clustalw_reads(const std::string& file) const
    {
        output_of({"clustalw", "-infile=" + file, "-convert", "-output=fasta", "-outfile=converted"});
        Sequences read = read_sequences("fasta", "converted");
        for (Named& each : read)
            each.sequence = without(each.sequence, "-?");
        return read;
    }

    // The analysed species, each by the name that `name_of` gives it and its characters after `first`.
    template <class NameOf>
    static Sequences analysed(NameOf name_of, std::size_t first = 0)
    {
        Sequences written;
        for (int i = 0; i < nb_spec_auto; i++) {
            const int species = cor_auto[static_cast<std::size_t>(i)];
            std::string characters;
            kept_characters(species, kept_positions(), characters);
            written.push_back({name_of(i, std::string(identifier(species))), characters.substr(first)});
        }
        return written;
    }
    static std::string joined(int, const std::string& name) { return replaced(name, " ", '_'); }
    static std::string phylip(int i, const std::string&)
    {
        return phylip_name_joined(ident_phylip[static_cast<std::size_t>(i)]);
    }
    // The names in PHYLIP files.
    static std::multiset<std::string> phylip_leaves()
    {
        EXPECT_EQ(alloue_memoire_dist(), 0);
        creer_ident_phylip();
        std::multiset<std::string> names;
        for (const Named& each : analysed(phylip))
            names.insert(each.name);
        return names;
    }
};

TEST_P(Interoperability, TreePuzzleReadsThePhylipFile)
{
    if (!installed("tree-puzzle")) GTEST_SKIP() << "tree-puzzle is not installed";
    write_file("work/answers", "y\n");
    const std::string printed =
        output_of({"sh", "-c", "exec tree-puzzle \"$0\" <answers", "x_2.puz"}); // it asks
    EXPECT_NE(printed.find(text_format("contains 12 sequences of length %d", nb_nuc_keep)), std::string::npos)
        << printed;
    EXPECT_EQ(leaves("x_2.puz.tree"), phylip_leaves());
}

// It does not take the .pml file, in which the sequence stands below the name.
TEST_P(Interoperability, PhymlReadsThePhylipFile)
{
    if (!installed("phyml")) GTEST_SKIP() << "phyml is not installed";
    output_of(
        {"phyml", "-i", "x_2.puz", "-d", GetParam().phyml_type, "-b", "0", "-o", "n", "--no_memory_check"});
    EXPECT_EQ(leaves("x_2.puz_phyml_tree.txt"), phylip_leaves());
}

TEST_P(Interoperability, ClustalwReadsPirMsfAndFasta)
{
    if (!installed("clustalw")) GTEST_SKIP() << "clustalw is not installed";
    const auto as_read = [](Sequences written) {
        for (Named& each : written)
            each.sequence = without(each.sequence, "*- ?X");
        return written;
    };
    nomfic = "x.pir";
    ASSERT_TRUE(write_pir());
    // There is no line for a title: the first line of residues is taken for it.
    EXPECT_EQ(clustalw_reads("x.pir"), as_read(analysed(joined, 60)));
    nomfic = "x.msf";
    phylip_leaves();
    ASSERT_TRUE(write_msf());
    EXPECT_EQ(clustalw_reads("x.msf"), as_read(analysed(phylip)));
    nomfic = "x.afas";
    ASSERT_TRUE(write_afas());
    const std::string fasta = read_file("work/x.afas");
    write_file("work/without_comments", fasta.substr(fasta.find('>')));
    EXPECT_EQ(clustalw_reads("without_comments"),
              as_read(analysed([](int, const std::string& name) { return name.substr(0, name.find(' ')); })));
}

TEST_P(Interoperability, BiopythonReadsTreesAndNexus)
{
    const auto padded_with_lines = [](int, const std::string& name) {
        return (replaced(name, " ", '_') + std::string(79, '_')).substr(0, 79);
    };
    std::multiset<std::string> names;
    for (const Named& each : analysed(joined))
        names.insert(each.name);
    for (const char* tree : {"x-0.arb", "x-1.arb", "x-2.arb"})
        EXPECT_EQ(leaves(tree), names) << tree;

    const auto with_characters = [](Sequences written, std::string_view from, char to) {
        for (Named& each : written)
            each.sequence = replaced(each.sequence, from, to);
        return written;
    };
    EXPECT_EQ(read_sequences("nexus", "x_0.mac"), with_characters(analysed(padded_with_lines), " ", '?'));
    percent_gap = 100;
    elimine_pos_gap();
    nomfic = "x_6.nex";
    ASSERT_TRUE(write_nexus_file());
    EXPECT_EQ(read_sequences("nexus", "x_6.nex"),
              with_characters(with_characters(analysed(padded_with_lines), " ", '?'), "*", '-'));
}

INSTANTIATE_TEST_SUITE_P(Demo, Interoperability,
                         testing::Values(DemoSet{"ssu_small", "nt"}, DemoSet{"ovomucoid", "aa"}),
                         [](const auto& each) { return std::string(each.param.name); });

} // namespace
} // namespace kq
