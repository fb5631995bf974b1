// Counting rows by tiles against counting character by character, at the edges of lanes and tiles.
#include "core/count_table.h"
#include "core/residues.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

using namespace kq;

namespace {

std::vector<std::string> random_rows(std::size_t count, int columns, std::mt19937& random)
{
    std::vector<std::string> rows(count);
    std::uniform_int_distribution<> character(1, 255), length(0, columns + 20), any(0, 3);
    for (auto& row : rows) {
        row.resize(static_cast<std::size_t>(any(random) ? columns : length(random)));
        for (auto& c : row) // any byte now and then
            c = any(random) ? "ACGTUNKYSBWRDMHV*-$?X PQL"[character(random) % 25]
                            : static_cast<char>(character(random));
    }
    return rows;
}

std::vector<CountedText> texts_of(const std::vector<std::string>& rows)
{
    std::vector<CountedText> texts;
    for (const auto& row : rows)
        texts.push_back({row.data(), static_cast<int>(row.size())});
    return texts;
}

// The first wrong counter within [first, last); outside every counter has to be zero.
std::string first_error(const CountTable& table, const std::vector<std::string>& rows, int type, int first,
                        int last)
{
    for (int p = 0; p < table.columns(); p++) {
        std::vector<std::uint32_t> expected(static_cast<std::size_t>(table.codes()));
        std::uint32_t blanks = 0;
        for (const auto& row : rows) {
            if (p < first || p >= last) break;
            const char c = p < std::ssize(row) ? row[static_cast<std::size_t>(p)] : ' ';
            const int code = type ? code_prot(c) : code_arn(c);
            if (code >= 0) expected[static_cast<std::size_t>(code)]++;
            blanks += c == ' ';
        }
        for (int code = 0; code < table.codes(); code++)
            if (table.count(code, p) != expected[static_cast<std::size_t>(code)])
                return "column " + std::to_string(p) + ", code " + std::to_string(code);
        if (table.blank(p) != blanks) return "column " + std::to_string(p) + ", blanks";
    }
    return "";
}

} // namespace

TEST(CountTable, CountsRowsOfAnyNumberAndLength)
{
    std::mt19937 random(3);
    for (const std::size_t count : {0U, 1U, 7U, 8U, 255U, 256U, 600U})
        for (const int columns : {1, 19, 64, 90, 513}) {
            const int type = static_cast<int>(count) % 2;
            const auto rows = random_rows(count, columns, random);
            const auto texts = texts_of(rows);
            const int first = columns / 5, last = columns - columns / 7;
            CountTable table;
            ASSERT_TRUE(table.start(type, columns, static_cast<int>(count)));
            table.add(texts, first, last, Sign::plus);
            ASSERT_EQ(first_error(table, rows, type, first, last), "") << count << " x " << columns;
            table.add(texts, 0, columns, Sign::plus);
            table.add(texts, first, last, Sign::minus);
            ASSERT_EQ(first_error(table, rows, type, 0, columns), "") << count << " x " << columns;
        }
}

// 70000 rows of one character need counters of 32 bits; what they lose and gain in part fits 16.
TEST(CountTable, HoldsMoreRowsThanSixteenBits)
{
    const std::string a(40, 'A'), c(40, 'C');
    CountTable narrow, wide;
    ASSERT_TRUE(narrow.start(0, 40, 65535));
    EXPECT_TRUE(narrow.holds(65535));
    EXPECT_FALSE(narrow.holds(65536));
    ASSERT_TRUE(wide.start(0, 40, 70000));
    EXPECT_TRUE(wide.holds(500000));
    wide.add(std::vector<CountedText>(70000, {a.data(), 40}), 0, 40, Sign::plus);
    narrow.add(std::vector<CountedText>(65535, {a.data(), 40}), 0, 40, Sign::plus);
    EXPECT_EQ(narrow.count(code_arn('A'), 39), 65535U);
    wide.add(narrow, 0, 20, Sign::minus);
    wide.change(0, a, c, 2);
    EXPECT_EQ(wide.count(code_arn('A'), 0), 70000U - 65535U - 2U);
    EXPECT_EQ(wide.count(code_arn('A'), 20), 70000U - 2U);
    EXPECT_EQ(wide.count(code_arn('C'), 39), 2U);
}

TEST(CountTable, ReportsTheColumnsThatChanged)
{
    const auto changes = [](CountTable& table) {
        const auto range = table.take_changes();
        return range.empty() ? std::pair(0, 0) : std::pair(range.first, range.last);
    };
    CountTable table;
    ASSERT_TRUE(table.start(0, 100, 1));
    EXPECT_EQ(changes(table), std::pair(0, 100));
    EXPECT_EQ(changes(table), std::pair(0, 0));
    table.change(10, "AACGTAA", "AACTTAA", 1); // the ends are the same
    EXPECT_EQ(changes(table), std::pair(13, 14));
    table.change(10, "ACGT", "ACGT", 1);
    EXPECT_EQ(changes(table), std::pair(0, 0));
    table.add('A', 1, 5, 7);
    table.shift_right(90, 2);
    EXPECT_EQ(changes(table), std::pair(5, 100));
    table.extend(3000); // beyond the spare room
    EXPECT_EQ(changes(table), std::pair(100, 3100));
    EXPECT_EQ(table.count(code_arn('A'), 6), 1U);
    EXPECT_EQ(table.count(code_arn('A'), 3099), 0U);
}

TEST(Residues, EveryCharacterHasTheClassOfItsTable)
{
    const std::string arn = "-TGKCYSBAWRDMHVN", prot = "-ACDEFGHIKLMNPQRSTVWY";
    for (int i = 0; i < 256; i++) {
        const char c = static_cast<char>(i);
        const bool gap = c == '-' || c == '*' || c == '$', unknown = c == ' ' || c == '?' || c == 'X';
        const auto expected = [&](const std::string& letters, int unknown_class) {
            if (gap || unknown) return gap ? 0 : unknown_class;
            return letters.find(c) == std::string::npos ? -1 : static_cast<int>(letters.find(c));
        };
        EXPECT_EQ(code_arn(c), c == 'U' ? 1 : expected(arn, 16)) << c;
        EXPECT_EQ(code_prot(c), expected(prot, 21)) << c;
    }
}
