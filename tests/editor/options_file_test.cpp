#include "core/options.h"
#include "core/residues.h"
#include "editor/options_file.h"
#include "support/screen_test.h"

using namespace kq;

namespace {

constexpr auto options_name = "zolt/data/kq_aff.sys";

class OptionsFileTest : public test::ScreenTest {
public:
    OptionsFileTest() { options_reset(); }
    ~OptionsFileTest() override { options_reset(); }
};

std::string lines(int count, const char* text)
{
    std::string all;
    for (int i = 0; i < count; i++)
        all += std::string(text) + "\n";
    return all;
}

} // namespace

TEST_F(OptionsFileTest, WhatIsWrittenIsReadAgain)
{
    opt_tiret = 1, opt_nogap = 1, opt_couleur = 1, opt_identificateur = 2, opt_consensus = 2;
    color_char_arn[16] = 3, color_char_prot[21] = 6;
    ASSERT_EQ(sauve_config_affiche(), "");
    const auto written = read_file(options_name);
    EXPECT_TRUE(written.starts_with("1\n1\n1\n2\n2\n7\n4\n2\n")) << written; // options, gap, T, G
    EXPECT_EQ(std::count(written.begin(), written.end(), '\n'), 44);

    options_reset();
    read_config_affiche();
    EXPECT_EQ(opt_identificateur, 2);
    EXPECT_EQ(color_char_arn[16], 3);
    EXPECT_EQ(color_char_prot[21], 6);
    ASSERT_EQ(sauve_config_affiche(), "");
    EXPECT_EQ(read_file(options_name), written);
}

TEST_F(OptionsFileTest, WithoutAFileEverythingIsDefault)
{
    write_file("zolt/data/pyx.sys", "0\n14\n8\n40\n100\n");
    opt_consensus = 2, opt_evalue = 1, color_char_arn[8] = 0, _nb_line = 40;
    read_config_affiche();
    EXPECT_EQ(opt_consensus, 0);
    EXPECT_EQ(color_char_arn[8], 1);
    EXPECT_EQ(opt_evalue, 1) << "the choice of score is no display option";
    EXPECT_EQ(_nb_line, 40) << "the window has its own file";
}

TEST_F(OptionsFileTest, NonsenseNeverLeavesTheTables)
{
    const struct {
        const char* what;
        std::string file;
        int consensus, adenine, unknown; // opt_consensus, color_char_arn[8], color_char_prot[21] afterwards
    } cases[] = {
        {"good", "0\n0\n0\n0\n1\n" + lines(39, "6"), 1, 6, 6},
        {"out of bounds", "9\n-1\n0\n0\n3\n" + lines(39, "8"), 0, 1, 0},
        {"huge numbers", lines(44, "99999999999999999999"), 0, 1, 0},
        {"short: the rest as it was", "0\n0\n0\n0\n1\n7\n", 1, 2, 2},
        {"not a number", "1\n0\nx\n0\n1\n" + lines(39, "6"), 2, 2, 2},
        {"binary", std::string("\0\xff\xfe", 3), 2, 2, 2},
        {"separated by blanks", "0 0 0 0 2 " + lines(39, "5"), 2, 5, 5},
    };
    for (const auto& c : cases) {
        options_reset();
        opt_consensus = 2, color_char_arn[8] = 2, color_char_prot[21] = 2;
        write_file(options_name, c.file);
        read_config_affiche();
        EXPECT_EQ(opt_consensus, c.consensus) << c.what;
        EXPECT_EQ(color_char_arn[8], c.adenine) << c.what;
        EXPECT_EQ(color_char_prot[code_unknown_prot], c.unknown) << c.what;
    }
}
