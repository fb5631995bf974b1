// What ClustalW writes, read from good and from damaged texts.
#include "tools/clustalw_files.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>

namespace kq {
namespace {

const std::string head = "#NEXUS\nBEGIN DATA;\ndimensions ntax=2 nchar=5;\n",
                  format = "format missing=?\n"
                           "interleave datatype=DNA gap= -;\n\n";
const std::string good =
    head + format + "matrix\nlcl|7       AC-\nlcl|12      ACG\n\nlcl|7       -U\nlcl|12      -U\n;\nend;\n";

std::map<int, std::string> rows_of(const NexusAlignment& alignment)
{
    std::map<int, std::string> rows;
    for (std::size_t i = 0; i < alignment.species.size(); i++)
        rows[alignment.species[i]] = alignment.row(i);
    return rows;
}

} // namespace

TEST(ClustalwFiles, ArgumentsAreNoTextForAShell)
{
    EXPECT_EQ(clustalw_arguments("/a b/c", "-x;y.fasta"),
              (std::vector<std::string>{"/a b/c", "-OUTPUT=NEXUS", "-infile=-x;y.fasta"}));
}

TEST(ClustalwFiles, AlignmentsAreReadInEveryForm)
{
    const std::map<int, std::string> rows{{7, "AC--U"}, {12, "ACG-U"}};
    std::string with_returns;
    for (const char c : good)
        with_returns += c == '\n' ? std::string("\r\n") : std::string(1, c);
    const std::string texts[] = {
        good,
        with_returns,
        good.substr(0, good.find("\n;")), // without its end
        head + "MATRIX ;\nlcl|12 ACG-U\nlcl|7\tAC--U 5",
        head + "Matrix\nlcl|7 A C - - U\n \t\nlcl|12 ACG-U\n;lcl|7 rest\n",
        "#nexus begin data; dimensions ntax=2 nchar=5;\nmatrix\nlcl|12 ACG-\nlcl|7 A\nlcl|7 C--U\nlcl|12 U\n",
    };
    for (const auto& text : texts) {
        NexusAlignment alignment;
        EXPECT_EQ(read_nexus(text, alignment).what, "") << text;
        EXPECT_EQ(rows_of(alignment), rows) << text;
    }
}

TEST(ClustalwFiles, WhatIsWrongIsSaid)
{
    const auto matrix = [](const std::string& rows) { return head + format + "matrix\n" + rows; };
    const struct {
        std::string text, what;
        int species = -1;
    } cases[] = {
        {"", "it is empty"},
        {" \n\n", "it is empty"},
        {"CLUSTAL 2.1 multiple sequence alignment\n", "it does not begin as a NEXUS alignment does"},
        {"#NEXUS\nBEGIN DATA;\ndimensions ntax=2\n", "it does not say how many rows and columns it has"},
        {"#NEXUS\nBEGIN DATA;\ndimensions ntax=-2 nchar=5;\n",
         "it does not say how many rows and columns it has"},
        {"#NEXUS\nBEGIN DATA;\ndimensions ntax=2 nchar=99999999999;\n",
         "it does not say how many rows and columns it has"},
        {"#NEXUS\nBEGIN DATA;\ndimensions ntax=2000000000 nchar=2000000000;\nmatrix\n",
         "2000000000 rows of 2000000000 columns are more than an alignment can have"},
        {head + format, "it has no matrix"},
        {matrix("lcl|7 AC--U\nError 12 ACG-U\n"), "line 9 is not the row of a species"},
        {matrix("lcl|7 AC--U\nlcl|x12 ACG-U\n"), "line 9 is not the row of a species"},
        {matrix("lcl|7 AC--U\nlcl|12\n"), "line 9 is not the row of a species"},
        {matrix("lcl|7 AC--U\nlcl|12ACG-U\n"), "line 9 is not the row of a species"},
        {matrix("lcl|7 AC--U\nlcl|-0 ACG-U\n"), "line 9 is not the row of a species"},
        {matrix("lcl|7 AC--U\nlcl|20000 ACG-U\n"), "line 9 is not the row of a species"},
        {matrix("lcl|7 AC--U\nlcl|12 AC.-U\n"), "line 9 has a character that is no residue"},
        {matrix("lcl|7 AC--U\nlcl|7 ACG-U\n;\n"), "comes again before all rows have come", 7},
        {matrix("lcl|7 AC--U\n;\nlcl|12 ACG-U\n"), "it has 1 rows and announces 2"},
        {matrix("lcl|7 AC--\nlcl|12 ACG-\n\nlcl|7 U\nlcl|3 U\n"),
         "it has more than the 2 rows that it announces"},
        {matrix("lcl|7 AC--U\nlcl|12 ACG-UU\n"), "is longer than the 5 columns announced", 12},
        {matrix("lcl|7 AC--U\nlcl|12 ACG-\n"), "has 4 of the 5 columns announced", 12},
    };
    for (const auto& c : cases) {
        NexusAlignment alignment;
        const ResultProblem problem = read_nexus(c.text, alignment);
        EXPECT_EQ(problem.what, c.what) << c.text;
        EXPECT_EQ(problem.species, c.species) << c.text;
    }
}

// Whatever the bytes, rows that are accepted are whole.
TEST(ClustalwFiles, DamageIsFoundOrHarmless)
{
    std::mt19937 random(11);
    for (int round = 0; round < 5000; round++) {
        std::string text = good;
        for (auto changes = random() % 4; changes > 0; changes--)
            text[random() % text.size()] =
                random() % 5 ? "\n\r ;-0179Aal|#"[random() % 15] : static_cast<char>(random());
        if (random() % 2) text.resize(random() % (text.size() + 1));
        NexusAlignment alignment;
        if (!read_nexus(text, alignment).what.empty()) continue;
        for (const auto& [species, row] : rows_of(alignment)) {
            ASSERT_EQ(row.size(), alignment.length);
            ASSERT_TRUE(std::ranges::all_of(row, [](char c) { return std::isalpha(c) || c == '-'; })) << text;
        }
        ASSERT_EQ(rows_of(alignment).size(), alignment.species.size()) << text;
    }
}

} // namespace kq
