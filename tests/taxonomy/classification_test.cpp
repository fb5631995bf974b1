// Classifications in information files.
#include "taxonomy/classification.h"

#include <gtest/gtest.h>

using namespace kq;

TEST(Classification, IsTheNextOneBehindTheAccession)
{
    const std::string inf = "[ORG] Homo\n[ACC] X1\n[SYS] Eukaryota; Metazoa;\nMammalia; Homo.\n[BLA] 1\n\n"
                            "[ACC] X12 X3\r\n[DEF] none\r\nsee [SYS] Bacteria;\r\nBacillus.\r\n\r\n"
                            "[SYS] of nobody\n[ACC] Z9";
    const struct {
        const char *accession, *text;
    } cases[] = {
        {"X1", "[SYS] Eukaryota; Metazoa; Mammalia; Homo."},
        {"X12", "see [SYS] Bacteria; Bacillus."},
        {"X3", "see [SYS] Bacteria; Bacillus."},
        {"1", "[SYS] Eukaryota; Metazoa; Mammalia; Homo."}, // the first line with it
        {"none", "see [SYS] Bacteria; Bacillus."},
        {"Metazoa", ""}, // behind the line, not in it; the next record's is not its own
        {"Bacillus.", ""},
        {"Z9", ""},
        {"X4", ""},
        {"", ""},
    };
    for (const auto& [accession, text] : cases)
        EXPECT_EQ(classification_of(inf, accession), text) << accession;
    EXPECT_EQ(classification_of("", "X1"), "");
    std::string endless = "[ACC] X1\n[SYS] a;";
    for (int i = 0; i < 100000; i++)
        endless += "\nline " + std::to_string(i);
    EXPECT_LE(classification_of(endless, "X1").size(), 10000U);
    EXPECT_EQ(accession_of("Homo sapiens@X1@2"), "X1@2");
    EXPECT_EQ(accession_of("Homo sapiens@"), "");
    EXPECT_EQ(accession_of("Homo sapiens"), "");
}

TEST(Classification, WordsAreReadFromTheRight)
{
    using Words = std::vector<std::string>;
    EXPECT_EQ(group_words("[SYS] Bacteria; Proteobacteria; Gammaproteobacteria."),
              (Words{"Gammaproteobacteria", "Proteobacteria", "Bacteria"}));
    EXPECT_EQ(group_words("[SYS] G_PROTEO;x  12 ?;"), (Words{"?", "12", "G_proteo"}));
    EXPECT_EQ(group_words("[SYS]"), Words{});
    EXPECT_EQ(group_words(" ; .\t "), Words{}) << "a tab is no blank";
    EXPECT_EQ(group_words(""), Words{});
}
