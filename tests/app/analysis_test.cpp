// The automatic analysis of real sequences, from the tree and from the editor.
#include "analysis/stored_analysis.h"
#include "app/program_test.h"
#include "support/shared_data.h"

#include <sstream>

using kq::test::Ending;

namespace {

namespace fs = std::filesystem;

class MediumAnalysis : public kq::test::ProgramTest {
protected:
    static constexpr std::size_t listed = 40;

    // The alignment alone, and a list of some of its species.
    void SetUp() override
    {
        const auto data = kq::test::shared_data();
        if (!data) GTEST_SKIP() << "there are no shared data";
        constexpr auto copy_over = fs::copy_options::recursive | fs::copy_options::overwrite_existing;
        for (const char* part : {"/ssu_medium/ZOLT", "/ssu_medium/ZOLTEXE"})
            fs::copy(*data + part, root(), copy_over);
        std::istringstream species(read_file("zolt/data/lactobac.lis"));
        std::string list = "#Created by Unknown on Friday\n#Some\n" + std::to_string(listed) + "\n", line;
        for (std::size_t i = 0; i < listed + 3; i++) {
            std::getline(species, line);
            if (i >= 3) list += line + "\n";
        }
        fs::remove(path("zolt/data/lactobac.lis"));
        write_file("zolt/data/some.lis", list);
        remember("FIRMICUT", "firmicut");
        stop_clock(1179302400);
        work_in("work");
    }

    // After a run at level 3 on the species of the list.
    void expect_every_file(std::size_t species) const
    {
        kq::plain::Analysis analysis = kq::test::stored_analysis();
        std::size_t members = 0;
        for (const auto& ensemble : analysis.ensembles)
            members += ensemble.size();
        ASSERT_EQ(members, species);
        analysis.level = 3;
        const kq::plain::Files expected = kq::plain::analysis_files(analysis);
        EXPECT_EQ(expected.size(), 21U);
        EXPECT_EQ(file_names("work").size(), expected.size());
        for (const auto& [name, text] : expected)
            EXPECT_TRUE(read_file("work/" + name) == text) << name;
    }
};

const std::string open_and_load = "Enter Enter F8 Enter Enter ";
const std::string third_level = "BackSpace \"3\" Enter*3 ";

} // namespace

// The ensemble being built counts, too; here it holds the species of the one that is there.
TEST_F(MediumAnalysis, FromTheTree)
{
    EXPECT_EQ(run(open_and_load + "F3 Escape F3 Y F8 Enter Enter S-F7 " + third_level), Ending::script_ended);
    EXPECT_EQ(kq::nb_ens, 2);
    expect_every_file(2 * listed);
}

TEST_F(MediumAnalysis, FromTheEditor)
{
    EXPECT_EQ(run(open_and_load + "F3 Escape F7 " + third_level), Ending::script_ended);
    expect_every_file(listed);
}
