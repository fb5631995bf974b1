// The command lines of a BLAST search, the sequences that are sent, and the table of hits.
#include "tools/blast_commands.h"
#include "tools/blast_table.h"
#include "tools/fasta_text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <random>
#include <string>
#include <tuple>

using namespace kq;

namespace {

TEST(Blast, CommandLinesCarryHarmlessNamesOnly)
{
    const auto search = blast_search("ssu-2_B.ali", false);
    EXPECT_EQ(formatdb_command("/usr/local/blast/bin/", search),
              (std::vector<std::string>{"/usr/local/blast/bin/formatdb", "-issu-2_B.ali.forblast.fasta",
                                        "-pF", "-oF"}));
    EXPECT_EQ(
        blastall_command("/usr/local/blast/bin/", search),
        (std::vector<std::string>{"/usr/local/blast/bin/blastall", "-pblastn", "-dssu-2_B.ali.forblast.fasta",
                                  "-issu-2_B.ali.query.fasta", "-ossu-2_B.ali.query.blastn", "-e10", "-FF",
                                  "-b10000", "-v10000", "-m8"}));
    const auto protein = blast_search("x", true);
    EXPECT_EQ(formatdb_command("", protein)[2], "-pT");
    EXPECT_EQ(blastall_command("", protein)[1], "-pblastp");
    EXPECT_EQ(protein.output, "x.query.blastp");
    const std::string hostile[] = {"a b.ali", "a;b", "$(x)", "`x`", "a'b",  "a\"b", "-a.ali",
                                   "a-",      "a/b", "a\nb", "*",   "\xe9", "",     std::string(201, 'a')};
    for (const auto& name : hostile)
        EXPECT_EQ(blast_search(name, false).query, "alignment.query.fasta") << name;
}

std::string line(const std::string& subject, const std::string& length = "59",
                 const std::string& evalue = "1e-27", const std::string& score = "103",
                 const std::string& query = "lcl|0")
{
    return query + '\t' + subject + "\t98.305\t" + length + "\t1\t0\t1\t59\t1\t59\t" + evalue + '\t' + score +
           '\n';
}

TEST(Blast, TheTableIsReadUpToTheFirstLineThatIsNone)
{
    const std::string first = line("lcl|3"), other = line("lcl|0", "26", "0.0", "48.2");
    const struct {
        std::string text;
        std::size_t hits;
        int unread_line;
    } cases[] = {
        {"", 0, 0},
        {first, 1, 0},
        {first + first + other + first, 3, 0}, // a subject that comes back counts again
        {first + other.substr(0, other.size() - 1), 2, 0},
        {first + other.substr(0, other.size() - 5), 1, 2}, // cut off before the bit score
        {first + other.substr(0, 9), 1, 2},
        {first + '\n' + other, 1, 2},
        {first + line("lcl|10") + other, 1, 2},
        {first + line("lcl|99999999999"), 1, 2},
        {line("lcl|9") + "# BLASTN\n", 1, 2},
        {line("lcl|-1"), 0, 1},
        {line("3"), 0, 1},
        {line("lcl|"), 0, 1},
        {line("lcl|3x"), 0, 1},
        {line("lcl|3", "59.5"), 0, 1},
        {line("lcl|3", "59", "nan"), 0, 1},
        {line("lcl|3", "59", "-1"), 0, 1},
        {line("lcl|3", "59", "1e999"), 0, 1},
        {line("lcl|3", "59", "1e-27", "inf"), 0, 1},
        {line("lcl|3", "59", "1e-27", "103\t1"), 0, 1},
        {line("lcl|3", "59", "1e-27", "103", "gi|0"), 0, 1},
        {std::string("\0\0\0\n", 4) + first, 0, 1},
    };
    for (const auto& c : cases) {
        const auto table = read_blast_table(c.text, 10);
        EXPECT_EQ(table.hits.size(), c.hits) << c.text.substr(0, 200);
        EXPECT_EQ(table.unread_line, c.unread_line) << c.text.substr(0, 200);
    }
    const auto spaced = read_blast_table("lcl|0 lcl|3   98.305 59 1 0 1 59 1 59 1.30e-27 103 \r\n", 10);
    ASSERT_EQ(spaced.hits.size(), 1U);
    const BlastHit hit = spaced.hits[0];
    EXPECT_EQ(std::tuple(hit.species, hit.identity, hit.length, hit.evalue, hit.score),
              std::tuple(3, 98.305, 59, 1.30e-27, 103.0));
}

// Lengths around the blocks that rows are copied in; runs of all lengths.
TEST(Blast, SequencesAreSentWithoutGaps)
{
    std::mt19937 random(5);
    for (std::size_t length = 0; length < 120; length++) {
        std::string text, sent;
        while (text.size() < length)
            text.append(1 + random() % 40, "ACGTNacgt*-$ ?"[random() % 14]);
        text.resize(length);
        std::ranges::copy_if(text, std::back_inserter(sent), [](char c) {
            return std::string_view("*-$ ?").find(c) == std::string_view::npos;
        });
        std::string file = "before\n";
        const int count = static_cast<int>(sent.size());
        EXPECT_EQ(append_fasta(file, 19999, text, count + 1), 0) << text;
        EXPECT_EQ(file, "before\n") << text;
        EXPECT_EQ(append_fasta(file, 19999, text, count), count) << text;
        EXPECT_EQ(file, sent.empty() ? "before\n" : "before\n>lcl|19999\n" + sent + '\n') << text;
    }
}

} // namespace
