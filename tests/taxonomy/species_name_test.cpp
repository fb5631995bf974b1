// Renaming a species.
#include "core/edit.h"
#include "taxonomy/species_name.h"
#include "tree_fixture.h"

using namespace kq;
using namespace kq::test;

namespace {

class SpeciesName : public TreeTest {
public:
    // Renames species 0, which has this name before; the result.
    int rename(const std::string& before, std::string_view keys)
    {
        set_identifier(0, before);
        mark_saved();
        int result = -9;
        play(keys, [&] { result = change_species_name(0); });
        return result;
    }
    std::string nom() const { return read_file("zolt/data/five.nom"); }
};

} // namespace

TEST_F(SpeciesName, HasTwoWords)
{
    load_five_leaves();
    const std::string longest = "Genus " + std::string(73, 'x');
    const struct {
        const char* what;
        std::string before, keys;
        int result; // -9: the name is still edited
        std::string after;
    } cases[] = {
        {"renamed", "Ant alpha@P1", "BackSpace*5 \"beta\" Enter N", 0, "Ant beta@P1"},
        {"without accession", "Ant alpha", "x Enter N", 0, "Ant alphax@"},
        {"the accession is cut", "Ant alpha@P1", "BackSpace*9 \"" + longest + "y\" Enter N", 0, longest},
        {"in part", "Ant alpha@P1", "BackSpace*9 \"" + longest.substr(0, 77) + "\" Enter N", 0,
         longest.substr(0, 77) + "@P"},
        {"escape", "Ant alpha@P1", "x Escape", -1, "Ant alpha@P1"},
        {"empty", "Ant alpha@P1", "BackSpace*9 Enter", -1, "Ant alpha@P1"},
        {"one word", "Ant alpha@P1", "BackSpace*6 Enter", -1, "Ant alpha@P1"},
        {"three words", "Ant alpha@P1", "\" K12\" Enter", -9, "Ant alpha@P1"},
        {"three words made two", "Ant alpha@P1", "\" K12\" Enter BackSpace*4 2 Enter N", 0, "Ant alpha2@P1"},
        {"an empty word", "Ant alpha@P1", "BackSpace*5 Enter", -9, "Ant alpha@P1"},
        {"an accession", "Ant alpha@P1", "\"@P2\" Enter", -9, "Ant alpha@P1"},
        {"a mark", "Ant alpha@P1", "\"#MASKED#\" Enter", -9, "Ant alpha@P1"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(rename(c.before, c.keys), c.result) << c.what;
        EXPECT_EQ(identifier(0), c.after) << c.what;
        EXPECT_EQ(modif == 0, c.result == 0) << c.what;
    }
    rename("Ant alpha@P1", "\" K12\" Enter BackSpace*4 , Enter");
    EXPECT_EQ(line(7), std::string(19, ' ') + "+- No @ , #NEW# #MASKED# " + std::string(35, '-') + '+');
    rename("Ant alpha@P1", "\" K12\" Enter");
    EXPECT_SCREEN("species_name");
}

TEST_F(SpeciesName, GetsItsLineInTheGroupFile)
{
    load_five_leaves();
    EXPECT_EQ(rename("Ant alpha@1", "BackSpace*5 \"omega\" Enter"), -9);
    EXPECT_TRUE(shows("Do you want to save this new name in"));
    const std::string before = nom();
    rename("Ant alpha@1", "BackSpace*5 \"omega\" Enter N");
    rename("Ant alpha@1", "BackSpace*5 \"omega\" Enter Escape");
    EXPECT_EQ(nom(), before);
    EXPECT_EQ(rename("Ant alpha@1", "BackSpace*5 \"omega\" Enter Y"), 0);
    EXPECT_EQ(nom(), "Ant alpha,A\nAnt omega , A\n" + before.substr(12)) << "the old line stays";
    EXPECT_EQ(read_file("zolt/data/five.bak"), before);

    // With families the line is that of all copies.
    load_names({"FA-Ant alpha@1", "FB-Ant alpha@2"});
    write_file("zolt/data/five.nom", "Ant alpha,A\n");
    read_taxonomy("FIVE", "five");
    EXPECT_EQ(rename("FA-Ant alpha@1", "x Enter Y"), 0);
    EXPECT_EQ(nom(), "Ant alpha,A\nAnt alphax , A\n");
}
