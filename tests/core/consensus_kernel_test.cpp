// Consensus marks: columns worked out by hand, then many columns at a time against one at a time.
#include "core/consensus_kernel.h"
#include "core/residues.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

using namespace kq;

namespace {

constexpr const char* dna = "*TGKCYSBAWRDMHVN ";
constexpr const char* protein = "*ACDEFGHIKLMNPQRSTVWY ";

// The counts of a column whose rows hold the characters of `column`.
struct Column {
    std::vector<std::uint32_t> counts;
    std::uint32_t blanks = 0, rows = 0;

    Column(std::string_view column, int type)
        : counts(static_cast<std::size_t>(number_of_codes(type)))
        , rows(static_cast<std::uint32_t>(column.size()))
    {
        for (const char c : column) {
            const int code = residue_codes(type)[static_cast<unsigned char>(c)];
            if (code != code_none) counts[static_cast<std::size_t>(code)]++;
            blanks += c == ' ';
        }
    }
};

std::string repeated(std::initializer_list<std::pair<int, char>> parts)
{
    std::string text;
    for (const auto& [times, c] : parts)
        text.append(static_cast<std::size_t>(times), c);
    return text;
}

} // namespace

TEST(ConsensusMark, StarsAndDotsByTheShareOfTheKnownRows)
{
    const struct {
        std::string column;
        char mark;
        const char* why;
    } cases[] = {
        {"AAAA", '*', "one code"},
        {"****", '*', "gaps are conserved too"},
        {"    ", ' ', "nothing known"},
        {"TUTU", '*', "T and U are one code"},
        {"AAAA    ", '*', "the most frequent is all that is known"},
        {"AC     ", ' ', "unknown leads with more than all that is known"},
        {repeated({{4, 'A'}, {1, 'C'}, {1, 'G'}, {1, 'T'}, {1, 'R'}, {1, 'Y'}, {1, 'K'}}), '*', "4 of 10"},
        {repeated({{3, 'A'}, {2, 'C'}, {2, 'G'}, {2, 'T'}, {1, 'R'}}), '.', "3 of 10"},
        {repeated({{39, 'A'}, {39, 'C'}, {22, 'G'}}), '.', "39 of 100"},
        {repeated({{19, 'A'}, {19, 'C'}, {19, 'G'}, {19, 'T'}, {19, 'R'}, {5, 'Y'}}), ' ', "19 of 100"},
        {repeated({{2, 'A'}, {8, 'e'}}), '.', "characters without a code are rows, in no counter"},
        {repeated({{1, 'A'}, {1, 'C'}, {1, 'G'}, {1, 'T'}, {1, 'R'}, {4, ' '}}), '*', "unknown 4 of 5 known"},
    };
    for (const auto& c : cases) {
        const Column column(c.column, 0);
        EXPECT_EQ(consensus_mark(column.counts, column.rows), c.mark) << c.why << ": " << c.column;
    }
}

TEST(ColumnConsensus, CharacterAndLevel)
{
    const struct {
        std::string column;
        int type;
        char character;
        int level;
        const char* why;
    } cases[] = {
        {"** ", 0, '*', 0, "gaps and fewer blanks"},
        {"**  ", 0, '*', 0, "as many blanks as gaps"},
        {"*  ", 0, ' ', 0, "more blanks"},
        {"???", 0, '*', 9, "unknown only, v = 0 is stored as 9"},
        {"**??", 0, '*', 5, "v = 20 / 4"},
        {"AAAA", 0, 'A', 0, "conserved"},
        {"AACC", 0, 'C', 5, "the lower code wins the tie: C 4, A 8"},
        {"***A", 0, '*', 3, "a gap can lead"},
        {repeated({{2, 'A'}, {8, ' '}}), 0, 'A', 0, "80% unknown: the leader of the known rows; v = 20 / 2"},
        {repeated({{11, 'A'}, {89, ' '}}), 0, 'A', 0, "89% unknown is still at most 80 in tenths"},
        {repeated({{10, 'A'}, {90, ' '}}), 0, 'A', 9, "90% unknown: the runner-up, at level 9"},
        {repeated({{2, 'C'}, {3, 'A'}, {95, '?'}}), 0, 'A', 9, "the leader before the unknown class led"},
        {repeated({{3, 'C'}, {2, 'A'}, {5, '?'}}), 0, 'C', 4, "unknown leads: the one before it, v = 30 / 5"},
        {repeated({{5, 'e'}, {3, 'C'}}), 0, 'C', 7, "characters without a code count as rows: v = 30 / 8"},
        {"eeee", 0, '*', 9, "no code at all: code 0 leads with nothing"},
    };
    for (const auto& c : cases) {
        const Column column(c.column, c.type);
        const auto found =
            column_consensus(column.counts, column.blanks, column.rows, c.type ? protein : dna);
        EXPECT_EQ(found.character, c.character) << c.why << ": \"" << c.column << '"';
        EXPECT_EQ(found.level, c.level) << c.why << ": \"" << c.column << '"';
    }
    EXPECT_EQ(column_consensus(Column("", 0).counts, 0, 0, dna).character, ' ');
}

TEST(ConsensusKernel, ManyColumnsAtATimeGiveTheSameAsOneAtATime)
{
    std::mt19937 random(7);
    const auto below = [&random](int n) { return std::uniform_int_distribution<>(0, n - 1)(random); };
    for (const int type : {0, 1})
        for (const int rows : {0, 1, 2, 7, 9, 10, 11, 40, 100, 70000}) {
            const int columns = rows > 100 ? 300 : 1000;
            CountTable table;
            ASSERT_TRUE(table.start(type, columns, rows));
            const char* letters = type ? protein : dna;
            for (int p = 0; p < columns; p++) // a column of at most six kinds of characters, one far ahead
                for (int left = rows; left > 0;) {
                    const int part = below(4) ? left : 1 + below(left);
                    table.add(
                        (std::string(letters) + "? ?*e")[static_cast<std::size_t>(below(type ? 27 : 22))],
                        part, p, p + 1);
                    left -= part;
                }
            std::string marks(static_cast<std::size_t>(columns), '#'), characters = marks;
            std::vector<unsigned char> levels(static_cast<std::size_t>(columns));
            const ColumnRange parts[] = {{0, 1}, {1, 255}, {255, 300}, {300, columns}};
            for (const auto& part : parts) {
                mark_columns(table, part, marks.data());
                consensus_columns(table, part, letters, characters.data(), levels.data());
            }
            for (int p = 0; p < columns; p++) {
                const auto i = static_cast<std::size_t>(p);
                std::vector<std::uint32_t> counts;
                for (int code = 0; code < table.codes(); code++)
                    counts.push_back(table.count(code, p));
                const auto n = static_cast<std::uint32_t>(rows);
                const auto expected = column_consensus(counts, table.blank(p), n, letters);
                ASSERT_EQ(marks[i], consensus_mark(counts, n)) << rows << " rows, column " << p;
                ASSERT_EQ(characters[i], expected.character) << rows << " rows, column " << p;
                ASSERT_EQ(levels[i], expected.level) << rows << " rows, column " << p;
            }
        }
}
