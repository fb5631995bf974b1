// The whole program on the memory driver: starting, and going round from one alignment to the next.
#include "app/program.h"
#include "core/chooser.h"
#include "core/families.h"
#include "core/options.h"
#include "core/store.h"
#include "support/screen_test.h"
#include "taxonomy/frame.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

using namespace kq;
using kq::test::Ending;

namespace {

namespace fs = std::filesystem;

class ProgramTest : public kq::test::ScreenTest {
public:
    ProgramTest() { chooser_reset(); }
    ~ProgramTest() override { frame_reset(); }

    // The demo's birds, with the memory file that answers the questions of a first start.
    void take_birds()
    {
        const fs::path demo = fs::path(KQ_SOURCE_DIRECTORY) / "demo";
        fs::copy(demo / "ZOLT/seq/ovomucoid.ali", path("seq/ovomucoid.ali"));
        for (const char* name : {"birds.nom", "birds.col"})
            fs::copy(demo / "ZOLT/zolt/data" / name, path("zolt/data/" + std::string(name)));
        fs::copy(demo / "ZOLTEXE/zoltexe/BIRDS.fra", path("zoltexe/BIRDS.fra"));
        write_file("zolt/data/afas.ref",
                   "BIRDS\n" + path("zolt/data/birds.nom") + "\n" + path("zolt/data/birds.col") + "\n");
    }
    kq::test::Played run(std::string_view keys)
    {
        frame_reset(); // a script that ends in the middle leaves its frame behind
        return play(keys, run_program);
    }
};

} // namespace

TEST_F(ProgramTest, NeedsItsVariablesAndAnAlignment)
{
    unsetenv("ZOLT");
    EXPECT_EQ(run("").status, 1);
    EXPECT_EQ(errors(), "The global variable ZOLT is not defined");
    forget_errors();
    unsetenv("ZOLTEXE");
    EXPECT_EQ(run("").status, 1);
    EXPECT_EQ(errors(), "The global variable ZOLTEXE is not defined");
    forget_errors();

    setenv("ZOLT", root().c_str(), 1);
    setenv("ZOLTEXE", root().c_str(), 1);
    EXPECT_EQ(run("").ending, Ending::script_ended);
    EXPECT_TRUE(shows("There is no file for this program"));
    const auto played = run("Enter");
    EXPECT_EQ(played.ending, Ending::program_ended);
    EXPECT_EQ(played.status, 1);
}

TEST_F(ProgramTest, GoesFromOneAlignmentToTheNext)
{
    take_birds();
    const std::string before = read_file("seq/ovomucoid.ali");
    // Everything below the root becomes ensemble 0, without a name; in the editor a gap goes into the first
    // row.
    const std::string to_editor = "Enter Enter F2 F3 Esc";
    EXPECT_EQ(run(to_editor + " \"*\"").ending, Ending::script_ended);
    EXPECT_EQ(modif, 0);
    EXPECT_EQ(nb_spec, 60);
    EXPECT_EQ(nb_spec_ens[0], 59);

    // Saved on the way to the next alignment, which is the same file as it now is.
    opt_evalue = 2;
    EXPECT_EQ(run(to_editor + " \"*\" S-F1 Y Y").ending, Ending::script_ended);
    EXPECT_TRUE(shows("File containing the systematic frame:"));
    EXPECT_EQ(read_file("seq/ovomucoid.bak"), before);
    EXPECT_NE(read_file("seq/ovomucoid.ali"), before);
    EXPECT_EQ(ident, nullptr);
    EXPECT_EQ(proot, nullptr);
    EXPECT_EQ(nb_spec_ens[0], 0);
    EXPECT_EQ(opt_evalue, 0);
    EXPECT_EQ(modif, 255);

    EXPECT_EQ(run(to_editor + " S-F1 Y " + to_editor).ending, Ending::script_ended);
    EXPECT_EQ(nb_spec_ens[0], 59);
    const auto played = run("Esc Y");
    EXPECT_EQ(played.ending, Ending::program_ended);
    EXPECT_EQ(played.status, 0);
}
