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
