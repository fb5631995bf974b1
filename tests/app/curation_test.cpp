// A curator's day on the demo, key by key, through the whole program: groups, colours, ensembles, fragments,
// lists and the files for other programs, each read by a reader that does not know the program.
#include "app/program_test.h"
#include "core/store.h"
#include "support/kel_reader.h"

#include <algorithm>
#include <fstream>

using kq::test::Ending;

namespace {

class Curation : public kq::test::ProgramTest {
protected:
    void SetUp() override
    {
        ProgramTest::SetUp();
        remember("BACTERIA", "bacteria");
        work_in("work");
    }

    std::string members(int ensemble) const
    {
        std::string names;
        for (const int species : kq::members(ensemble))
            names += std::string(kq::identifier(species)) + '\n';
        return names;
    }
};

const std::string open_fragments = "Down*3 Enter Enter ", open_small = "Down*4 Enter Enter ";
const std::string clear_name = "BackSpace*30 ";

// Four ensembles: three groups, and what is in no other ensemble. The topmost leaf is the first group.
const std::string first_leaf = "Home Up*2 ";
const std::string four_ensembles =
    first_leaf + "Down*5 Enter S-F12 F3 " + clear_name + "\"First\" Enter " +    //
    "F3 \"Y\" " + first_leaf + "F2 F3 " + clear_name + "\"Second\" Enter " +     //
    "F3 \"Y\" " + first_leaf + "Down F2 F3 " + clear_name + "\"Third\" Enter " + //
    "F3 \"Y\" Home S-F2 F3 " + clear_name + "\"Rest\" Enter ";

} // namespace

TEST_F(Curation, SpeciesWithoutAGroupAreSortedAndAGroupGetsAColour)
{
    const std::string groups = read_file("zolt/data/bacteria.nom");
    EXPECT_EQ(run(open_small + "F6 S-F8 Enter F11 Down*2 \"9\" F5"), Ending::script_ended);
    const std::string sorted = read_file("zolt/data/bacteria.nom");
    EXPECT_EQ(groups.find("Deferribacter thermophilus"), std::string::npos);
    EXPECT_NE(sorted.find("\nDeferribacter thermophilus , Deferribacteres\n"), std::string::npos);
    EXPECT_NE(sorted.find("\nChlorogloeopsis sp. , Cyanobacteria\n"), std::string::npos);
    EXPECT_TRUE(read_file("zolt/data/bacteria.bak") == groups);
    EXPECT_NE(read_file("zolt/data/bacteria.col").find("10,B_Proteobacteria\n"), std::string::npos);
    // The next run finds both.
    EXPECT_EQ(run(open_small + "F6"), Ending::script_ended);
    EXPECT_TRUE(shows("There are no species in Cupboard"));
    EXPECT_EQ(color_of("B_Proteobacteria"), 10);
}

TEST_F(Curation, FourEnsemblesAreCollapsedAndWrittenForOtherPrograms)
{
    EXPECT_EQ(run(open_small + four_ensembles +
                  "F4 Down Enter F4 Down*2 Enter S-F5 Enter BackSpace*20 \"day\" Enter " + //
                  "S-F5 Down*4 Enter BackSpace*20 \"cons\" Enter " +                       //
                  "O Down*5 Enter Q O Down*4 Enter BackSpace*20 \"all\" Enter S-F5 Down Enter BackSpace*20 "
                  "\"shown\" "
                  "Enter "),
              Ending::script_ended);
    ASSERT_EQ(kq::nb_ens, 4);
    std::size_t entries = 0;
    for (int e = 0; e < 4; e++)
        entries += kq::members(e).size();
    EXPECT_EQ(entries, 57U) << "all but the masked species and the two without a group, each once";

    const auto day = kq::test::read_kel("day.kel");
    EXPECT_EQ(day.error, "");
    ASSERT_EQ(day.names.size(), entries);
    EXPECT_TRUE(members(0).starts_with(day.names[0] + '\n'));
    const auto consensus = kq::test::read_kel("cons.kel");
    EXPECT_EQ(consensus.error, "");
    EXPECT_EQ(consensus.names, (std::vector<std::string>{">Ensemble1|First", ">Ensemble2|Second",
                                                         ">Ensemble3|Third", ">Ensemble4|Rest"}));
    EXPECT_EQ(consensus.positions, day.positions);

    for (int e = 0; e < 4; e++) {
        const auto part = kq::test::read_reduced_ali("ssu_small" + std::to_string(e) + ".ali");
        EXPECT_EQ(part.error, "");
        EXPECT_EQ(part.names.size(), kq::members(e).size());
    }
    const auto shown = kq::test::read_reduced_ali(path("seq/shown.ali"));
    EXPECT_EQ(shown.error, "");
    EXPECT_EQ(shown.sequences[0].substr(0, 500), day.sequences[0].substr(0, 500));
    std::ifstream groups("all.nom");
    int lines = 0;
    for (std::string line; std::getline(groups, line); lines++)
        EXPECT_NE(line.find(" , "), std::string::npos) << line;
    EXPECT_EQ(lines, kq::nb_spec);

    // The reduced alignment is an alignment: it opens.
    EXPECT_EQ(run("Down*3 Enter Enter Home F2 F3 Esc"), Ending::script_ended);
    EXPECT_EQ(kq::file_ALI, "shown.ali");
    EXPECT_EQ(kq::nb_spec, 57);
}

TEST_F(Curation, FragmentsAreFusedIntoTheWholeSequence)
{
    // The first fragment of Bacillus halodurans takes in its second and third, which then go.
    const auto fuse = "O Enter Down*8 F2 Down Home R F12 R F12 Esc F5 ";
    EXPECT_EQ(run(open_fragments + "Home F2 F3 " + clear_name + "Enter " + fuse), Ending::script_ended);
    const auto saved = kq::test::read_reduced_ali(path("seq/ssu_frag.ali"));
    ASSERT_EQ(saved.error, "");
    ASSERT_EQ(saved.names.size(), 21U);
    const auto whole = std::find(saved.names.begin(), saved.names.end(), "Bacillus halodurans@AB013373");
    const auto fused = std::find(saved.names.begin(), saved.names.end(), "Bacillus halodurans@AB013373.1");
    ASSERT_TRUE(whole != saved.names.end() && fused != saved.names.end());
    EXPECT_TRUE(saved.sequences[static_cast<std::size_t>(whole - saved.names.begin())] ==
                saved.sequences[static_cast<std::size_t>(fused - saved.names.begin())]);
    EXPECT_NE(read_file("seq/ssu_frag.non").find("#mode EST"), std::string::npos);
}

TEST_F(Curation, AFragmentFindsItsRelativesAndTheyAreArchivedForAnotherAlignment)
{
    // The tree's species screen on the fragments' group; the first is Bacillus halodurans itself.
    EXPECT_EQ(run(open_fragments +
                  "Home F9 \"Bacillus halo\" Enter F5 BackSpace \"300\" Enter BackSpace \"4\" Enter Esc " +
                  "F7 \"relatives\" Enter \"Me\" Enter \"Like Bacillus\" Enter "),
              Ending::script_ended);
    const std::string archived = read_file("zolt/data/relatives.lis");
    EXPECT_NE(archived.find("#Like Bacillus\n5\n"), std::string::npos) << archived;
    EXPECT_TRUE(archived.ends_with("\nBacillus halodurans@AB013373\n")) << archived;

    // Without the part from "@" the list finds the same species, not their fragments, elsewhere.
    EXPECT_EQ(run(open_small + "F8 End Down*9 Enter F3 Q*9 F3 Esc"), Ending::script_ended);
    EXPECT_EQ(kq::file_ALI, "ssu_small.ali");
    EXPECT_NE(members(0).find("Bacillus halodurans@AB013373\n"), std::string::npos) << members(0);
}
