// What the files of an analysis begin with, and the names in them and of them.
#include "analysis/analysed.h"
#include "analysis/comment_header.h"
#include "analysis/output_names.h"
#include "core/edit.h"
#include "core/options.h"
#include "support/ali_folder.h"

#include <gtest/gtest.h>

using namespace kq;

namespace {

std::string underscores(std::size_t count)
{
    return std::string(count, '_');
}

} // namespace

TEST(OutputNames, StemAndNumber)
{
    const struct {
        std::string alignment;
        char kind;
        int number;
        std::string name;
    } cases[] = {
        {"x.ali", 'm', 0, "x-0.nbm"},
        {"x.ali", 's', 99, "x_99.nbs"},
        {"x.y.ali", 'm', 100, "x100.nbm"},
        {std::string(73, 'n') + "opq.ali", 's', 2147483647, std::string(73, 'n') + "2147483647.nbs"},
        {"-rf $HOME 'x'.ali", 's', 1, "-rf $HOME 'x'_1.nbs"},
        {".ali", 'm', 3, "-3.nbm"},
        {"../../etc/passwd", 'm', 3, "-3.nbm"},
        {"etc/passwd", 'm', 3, "etc-3.nbm"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(header_file_name(c.alignment, c.kind, c.number), c.name);
        EXPECT_LE(c.name.size(), 99U);
    }
}

TEST(Identificateur, EveryOptionAndMode)
{
    const struct {
        std::string name;
        int option, length;
        IdentifierMode mode;
        std::string text;
    } cases[] = {
        {"Homo sapiens", 0, 80, identifier_joined, "Homo_sapiens" + underscores(68)},
        {"Homo sapiens K 12@AB  1", 0, 79, identifier_joined, "Homo_sapiens_K_12@AB__1" + underscores(56)},
        {"Homo sapiens K 12", 0, 79, identifier_binomial, "Homo_sapiens K 12" + underscores(62)},
        {"Homo  sapiens", 0, 20, identifier_binomial, "Homo  sapiens_______"},
        {"Homo sapiens", 0, 79, identifier_quoted, "'Homo_sapiens" + underscores(67) + "'"},
        {"Homo o'sapiens", 0, 8, identifier_quoted, "'Homo_o''s'"}, // cut before quotes are doubled
        {"Homo sapiens", 0, 79, identifier_trimmed, "Homo sapiens" + underscores(67)},
        {"H", 0, 80, identifier_joined, "H" + underscores(78)}, // one short of the field
        {"Homo sapiens K 12", 1, 80, identifier_joined, "H._sapiens_K_12"},
        {"Homo sapiens", 1, 5, identifier_binomial, "H._sa"},
        {"Homo sapiens K", 1, 79, identifier_trimmed, "H. sapiens K"},
        {"Homo sapiens", 2, 80, identifier_joined, "Homo" + underscores(76)},
        {"Homo sapiens", 2, 79, identifier_binomial, "Homo" + std::string(75, ' ')},
        {"Homo sapiens", 2, 79, identifier_trimmed, "Homo"},
        {"Bacterium", 1, 80, identifier_joined, "Bacterium"},
        {"Bacterium", 2, 79, identifier_quoted, "'Bacterium" + std::string(70, ' ') + "'"},
        {std::string(79, 'x'), 0, 80, identifier_joined, std::string(79, 'x') + "_"},
    };
    const test::AliFolder folder;
    folder.write("x.ali", "#\n#\n>a\nA\n");
    ASSERT_EQ(folder.load("x.ali"), "");
    cor_auto[0] = 0;
    nb_spec_auto = 1;
    for (const auto& c : cases) {
        set_identifier(0, c.name);
        opt_identificateur = c.option;
        EXPECT_EQ(identificateur(0, c.length, c.mode), c.text);
    }
    options_reset();
    analysed_reset();
}
