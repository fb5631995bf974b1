// A curator's morning, key by key, through the whole program on the demo.
#include "app/program_test.h"
#include "core/options.h"
#include "core/store.h"
#include "taxonomy/frame.h"

#include <sstream>

namespace fs = std::filesystem;
using kq::test::Ending;

namespace {

class MainRoad : public kq::test::ProgramTest {
protected:
    void SetUp() override
    {
        ProgramTest::SetUp();
        remember("DEMO", "demo");
    }

    // Line `number` (from 0) of a file.
    std::string file_line(std::string_view file, int number) const
    {
        std::istringstream text(read_file(file));
        std::string found;
        for (int i = 0; i <= number; i++)
            std::getline(text, found);
        return found;
    }
};

// The alignments of the demo, as the chooser lists them.
constexpr std::string_view open_ovomucoid = "Down Enter Enter ";
constexpr std::string_view select_all_unnamed = "Home F2 F3 Esc ";

std::string keys(std::initializer_list<std::string_view> parts)
{
    std::string script;
    for (const auto part : parts)
        script += part;
    return script;
}

} // namespace

TEST_F(MainRoad, SavingWithoutAnEditKeepsEveryByteButTheMarksOfNewSequences)
{
    const std::string before = read_file("seq/ssu_small.ali");
    EXPECT_EQ(run(keys({"Down*4 Enter Enter ", select_all_unnamed, "F5 Esc \"Y\""})), Ending::program_ended);
    std::string expected = before;
    for (auto at = expected.find("#NEW#"); at != std::string::npos; at = expected.find("#NEW#"))
        expected.erase(at, 5);
    EXPECT_FALSE(expected == before) << "the demo has new sequences";
    EXPECT_TRUE(read_file("seq/ssu_small.ali") == expected);
}

TEST_F(MainRoad, SequencesAreShortenedDestroyedAndAddedAndTheNextAlignmentOpens)
{
    kq::opt_evalue = 2;
    const auto ending = run(keys({
        open_ovomucoid, select_all_unnamed,
        "Right*10 \"X\" \"Y\" Enter ",                   // shorten on the right of the cursor
        "Down A-BackSpace \"Y\" Down*3 Enter ",          // destroy: redundancy
        "S-F9 \"Novum animal\" Enter \"VKYPNT\" Enter ", // add
        "F5 S-F1 \"Y\" ",                                // save, on to another file
    }));
    EXPECT_EQ(ending, Ending::script_ended);
    EXPECT_TRUE(shows("File containing the systematic frame:"));
    // Nothing of the first alignment is left behind.
    EXPECT_EQ(kq::ident, nullptr);
    EXPECT_EQ(kq::proot, nullptr);
    EXPECT_EQ(kq::nb_spec_ens[0], 0);
    EXPECT_EQ(kq::opt_evalue, 0);
    EXPECT_EQ(kq::modif, 255);

    const std::string saved = read_file("seq/ovomucoid.ali"), backup = read_file("seq/ovomucoid.bak");
    EXPECT_NE(saved.find("XXX\n"), std::string::npos);
    EXPECT_TRUE(saved.ends_with(">Novum animal@\nVKYPNT\n")) << saved.substr(saved.size() - 200);
    const std::string rejects = read_file("seq/ovomucoid.non");
    EXPECT_NE(rejects.find("\n#Redondancy\n>"), std::string::npos) << rejects;
    const std::string name = file_line("seq/ovomucoid.non", 3);
    EXPECT_EQ(saved.find('\n' + name + '\n'), std::string::npos) << name << " is still in the alignment";
    EXPECT_NE(backup.find('\n' + name + '\n'), std::string::npos);

    EXPECT_EQ(run(keys({open_ovomucoid, select_all_unnamed, "S-F1 \"Y\" Down Enter Enter ", // proteases
                        select_all_unnamed})),
              Ending::script_ended);
    EXPECT_EQ(kq::file_ALI, "proteases.ali");
    EXPECT_EQ(kq::nb_spec, 158);
    EXPECT_EQ(kq::nb_spec_ens[0], 158);
}

TEST_F(MainRoad, ASecondEnsembleIsCountedInTheConsensusLineAtOnce)
{
    write_file("zolt/data/kq_aff.sys", "0\n1\n0\n0\n1\n"); // every column, consensus of the ensembles
    remember("BIRDS", "demo");
    constexpr std::string_view one_leaf = "Home Up F2 F3 Esc ";
    const auto consensus_line = [&](std::string_view script) {
        EXPECT_EQ(run(keys({open_ovomucoid, one_leaf, script})), Ending::script_ended);
        return line(33).substr(29);
    };
    const auto of_one = consensus_line("Home");
    const auto of_both = consensus_line("F3 \"Y\" Home F2 F3 Esc Home");
    EXPECT_EQ(kq::nb_ens, 2);
    EXPECT_NE(of_both, of_one) << "the second ensemble makes no difference";
    EXPECT_EQ(of_both, consensus_line("F3 \"Y\" Home F2 F3 Esc S-F12 Home"));
}

TEST_F(MainRoad, EveryAlignmentOfTheDemoHasItsSpeciesOnTheTree)
{
    const struct {
        const char* open;
        int species, left_out; // masked or without a group
    } cases[] = {
        {"Enter Q*3 Enter ", 9, 1}, // three warnings about B and Z
        {"Down Enter Enter ", 60, 1},   {"Down*2 Enter Enter ", 158, 0},
        {"Down*3 Enter Enter ", 23, 0}, {"Down*4 Enter Enter ", 60, 3},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(run(keys({c.open, select_all_unnamed})), Ending::script_ended);
        EXPECT_EQ(kq::nb_spec, c.species) << c.open;
        EXPECT_EQ(kq::nb_spec_ens[0], c.species - c.left_out) << c.open;
    }
}

TEST_F(MainRoad, UnsavedWorkIsAskedForAndCanBeLeftBehind)
{
    const std::string before = read_file("seq/ovomucoid.ali");
    // ESCAPE at the save question stays; no leaves without saving.
    EXPECT_EQ(run(keys({open_ovomucoid, select_all_unnamed, "\"*\" Esc Esc Esc \"N\" \"Y\""})),
              Ending::program_ended);
    EXPECT_EQ(played_.keys_left, 0);
    EXPECT_TRUE(read_file("seq/ovomucoid.ali") == before);
    EXPECT_FALSE(has_file("seq/ovomucoid.bak"));
}

TEST_F(MainRoad, AnotherFrameIsChosenInTheFileChooser)
{
    // F3 lists ANIMALS, BACTERIA, BIRDS, DEMO; F4 the group files.
    EXPECT_EQ(run("F3 Home Down*2 Enter Enter"), Ending::script_ended);
    EXPECT_TRUE(shows("BIRDS.fra")) << line(2);
    EXPECT_TRUE(read_file("zolt/data/afas.ref").starts_with("BIRDS\n"));
}

TEST_F(MainRoad, WithoutAlignmentsItSaysSoAndEnds)
{
    fs::remove_all(path("seq"));
    fs::create_directory(path("seq"));
    EXPECT_EQ(run(""), Ending::script_ended);
    EXPECT_TRUE(shows("There is no file for this program"));
    EXPECT_EQ(run("Enter"), Ending::program_ended);
    EXPECT_EQ(played_.status, 1);
}
