// BLAST itself, from the chooser of alignments to the scores beside the names, on real sequences.
#include "app/program_test.h"
#include "core/options.h"
#include "core/store.h"
#include "editor/similarity_hits.h"
#include "tools/blast_search.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>

using namespace kq;
using test::Ending;

namespace {

class RealBlast : public test::ProgramTest {
protected:
    void SetUp() override
    {
        if (std::system("command -v formatdb blastall >/dev/null") != 0)
            GTEST_SKIP() << "BLAST is not installed";
        ProgramTest::SetUp();
        work_in("work");
    }

    // Opens a copy of the alignment by another name, all species in one ensemble, searches the species and
    // closes the table of hits.
    void search(const std::string& alignment, const std::string& name, const std::string& species)
    {
        const auto bytes = read_file("seq/" + alignment);
        std::filesystem::remove_all(path("seq"));
        std::filesystem::create_directory(path("seq"));
        write_file("seq/" + name, bytes);
        const std::string open = "Enter Enter Home F2 F3 Esc ";
        ASSERT_EQ(run(open), Ending::script_ended);
        const auto found = std::ranges::find(members(0), species, identifier);
        ASSERT_NE(found, members(0).end()) << screen_dump();
        const auto place = std::to_string(found - members(0).begin() + 1);
        ASSERT_EQ(run(open + "Down*" + place + " Up Z Enter"), Ending::script_ended);
        ASSERT_GT(tophits, 10) << screen_dump();
        EXPECT_TRUE(file_names("work").empty());
        EXPECT_EQ(file_names("seq"), std::vector{name});
    }

    // The score beside the name of a species that is on the screen.
    std::string score(const std::string& species) const { return line(line_of(species)).substr(20, 8); }
};

std::vector<std::string> first_hits(std::size_t count)
{
    std::vector<std::string> names;
    for (std::size_t i = 0; i < count; i++)
        names.emplace_back(identifier(blasttable[i].species));
    std::ranges::sort(names); // some are equally good
    return names;
}

} // namespace

TEST_F(RealBlast, AFragmentFindsTheSequenceThatItWasCutFrom)
{
    remember("BACTERIA", "bacteria");
    search("ssu_frag.ali", "frag ments; touch $(x) 'y.ali", "Clostridium tetani@X74770.2");
    EXPECT_EQ(first_hits(4),
              (std::vector<std::string>{"Clostridium perfringens@M69264", "Clostridium perfringens@M69264.2",
                                        "Clostridium tetani@X74770", "Clostridium tetani@X74770.2"}));
    EXPECT_EQ(blasttable[1].identity, 100.0);
    EXPECT_EQ(blasttable[1].length, 653);
    EXPECT_EQ(score("Clostridium tetani"), " 0.0e+00");
    EXPECT_EQ(score("Vibrio cholerae"), "6.9e-158");
}

TEST_F(RealBlast, AProteinFindsItsRelatives)
{
    remember("BIRDS", "birds");
    search("ovomucoid.ali", "-ovo.ali", "Branta canadensis");
    EXPECT_EQ(first_hits(1), std::vector<std::string>{"Branta canadensis"});
    EXPECT_EQ(score("Cygnus atratus"), " 3.2e-57");
}
