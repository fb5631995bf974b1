// Species lists: what their files hold, and which species their names mean.
#include "core/edit.h"
#include "support/plain_lists.h"
#include "support/screen_test.h"
#include "taxonomy/lis_file.h"
#include "taxonomy/species_lists.h"
#include "taxonomy_session.h"

#include <climits>

using namespace kq;
using namespace kq::test;

namespace {

using LisFiles = ScreenTest;
using ListedSpecies = TaxonomyTest;

using Names = std::vector<std::string>;

} // namespace

TEST_F(LisFiles, AreReadWhateverTheyHold)
{
    const std::string head = "#Created by A on B\n#T\n", long_name(79, 'n');
    const std::string no_species = "There are no species in this list";
    const struct {
        std::string bytes, created, title;
        int count;
        Names names;
        std::string remark;
    } cases[] = {
        {head + "2\nHomo sapiens@X\nMus\n", "Created by A on B", "T", 2, {"Homo sapiens@X", "Mus"}, ""},
        {"#A\r\n#T\r\n1\r\nMus\r\n", "A", "T", 1, {"Mus"}, ""},
        {head + "1\nMus", "Created by A on B", "T", 1, {"Mus"}, ""},
        {"", "", "", 0, {}, no_species},
        {head + "3\n", "Created by A on B", "T", 3, {}, no_species},
        {"AB\nCD\n 7x\nMus\n\n", "B", "D", 7, {"Mus", ""}, "The list holds 2 names"},
        {"#\n#\n-5\nMus\n", "", "", -5, {"Mus"}, "The list holds 1 names"},
        {"#\n#\nmany\nMus\n", "", "", 0, {"Mus"}, "The list holds 1 names"},
        {"#\n#\n99999999999999999999\nMus\n", "", "", INT_MAX, {"Mus"}, "The list holds 1 names"},
        {"#\n#\n2\n" + long_name + "\r\n" + long_name + "tail\n", "", "", 2, {long_name, long_name}, ""},
        {"#" + std::string(5000, 'a') + "\n#" + std::string(5000, 'b') + "\n1\n" + std::string(5000, 'c'),
         std::string(998, 'a'),
         std::string(998, 'b'),
         1,
         {std::string(79, 'c')},
         ""},
        {std::string("#\0a\n#\xff\n1\nM\0s\n", 13), std::string("\0a", 2), "\xff", 1, {{"M\0s", 3}}, ""},
    };
    for (const auto& [bytes, created, title, count, names, remark] : cases) {
        write_file("zolt/data/x.lis", bytes);
        const LisFile list = read_lis(path("zolt/data/x.lis"));
        EXPECT_EQ(list.error, "");
        EXPECT_EQ(list.created, created);
        EXPECT_EQ(list.title, title);
        EXPECT_EQ(list.count, count) << bytes.substr(0, 99);
        EXPECT_TRUE(list.names == names) << bytes.substr(0, 99);
        EXPECT_EQ(list.remark, remark) << bytes.substr(0, 99);
    }
    write_file("zolt/data/x.lis", head + "9\n" + std::string(300000, '\n'));
    const LisFile list = read_lis(path("zolt/data/x.lis"));
    EXPECT_EQ(std::ssize(list.names), max_listed_names);
    EXPECT_EQ(list.remark, "Only the first 200000 lines of the list are read");
    EXPECT_NE(read_lis(path("zolt/data/none.lis")).error, "");
    EXPECT_NE(read_lis(path("zolt/data")).error, "") << "a directory";
}

TEST_F(ListedSpecies, AreThoseOfThePlainSearch)
{
    std::mt19937 random(1012);
    const auto name = [&random] {
        std::string text;
        for (auto letters = random() % 4; letters > 0; letters--)
            text += "ab@ "[random() % 4];
        return text;
    };
    for (int round = 0; round < 300; round++) {
        SCOPED_TRACE(round);
        Names identifiers(1 + random() % 60), listed(random() % 60);
        std::ranges::generate(identifiers, name);
        std::ranges::generate(listed, name);
        load_names(identifiers);
        for (int s = 0; s < nb_spec; s++) {
            set_masked(s, random() % 5 == 0);
            set_destroyed(s, random() % 5 == 0);
        }
        const bool without_accession = round % 2 == 0;
        const auto expected = plain::listed_species(listed, without_accession);
        const MatchedNames matched = select_listed(listed, without_accession);
        ASSERT_EQ(matched.found, expected.found);
        ASSERT_EQ(matched.repeated, expected.repeated);
        ASSERT_EQ(matched.unknown, expected.unknown);
        chercher_specie_retenue();
        ASSERT_TRUE(std::ranges::equal(working_list(), expected.found));
        ASSERT_EQ(selection_error(), "");
    }
}
