// The NEXUS file and the programs that are started on it.
#include "analysis/analysed.h"
#include "analysis/analysis_run.h"
#include "analysis/analysis_start.h"
#include "analysis/nexus_run.h"
#include "analysis/output_names.h"
#include "editor/editor_test.h"

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <numeric>

namespace kq {
namespace {

using test::Ending;

class NexusRun : public test::EditorTest {
protected:
    NexusRun()
        : path_before_(std::getenv("PATH"))
    {
        unsetenv("KQ_PAUP");
        output_names_reset();
        work_in("work");
        load({"ACG*T", "AC-*T", "A G*C"});
    }
    ~NexusRun() override
    {
        setenv("PATH", path_before_.c_str(), 1);
        unsetenv("KQ_PAUP");
    }

    // A program that writes its arguments, one a line, into the file NAME_said of the working directory.
    void stand_in(const std::string& name, const std::string& directory = "bin") const
    {
        std::filesystem::create_directories(path(directory));
        write_program(directory + '/' + name,
                      "for a; do echo \"[$a]\"; done > saying\nmv saying '" + name + "_said'\n");
    }
    void search_programs_in(const std::string& directories) const
    {
        setenv("PATH", (directories + ":/bin:/usr/bin").c_str(), 1);
    }
    std::string wait_for(const std::string& name) const
    {
        for (int i = 0; i < 1000 && !has_file("work/" + name); i++)
            usleep(10000);
        return read_file("work/" + name);
    }

    std::string path_before_;
};

TEST_F(NexusRun, NamesReachPaupAndNimbraskAsOneArgument)
{
    stand_in("paup");
    stand_in("nimbrask");
    search_programs_in(path("bin"));
    const std::pair<std::string, std::string> cases[] = {
        {"x", "x"}, {"a b'\"$(touch x);`touch y`&\\", "a b'\"$(touch x);`touch y`&\\"}, {"-n", "./-n"}};
    for (const auto& [alignment, argument] : cases) {
        file_ALI = alignment + ".ali";
        nb_sequence = 0;
        EXPECT_EQ(play("Q", [] { write_nexus(); }).ending, Ending::returned);
        EXPECT_EQ(wait_for("nimbrask_said"), "[" + argument + "_0.tre]\n");
        EXPECT_EQ(wait_for("paup_said"), "[-n]\n[" + argument + "_0.nex]\n");
        std::vector<std::string> names{alignment + "_0.nbs", alignment + "_0.nex", "nimbrask_said",
                                       "paup_said"};
        std::ranges::sort(names);
        EXPECT_EQ(file_names("work"), names);
        std::filesystem::remove_all(path("work"));
        std::filesystem::create_directories(path("work"));
        std::filesystem::current_path(path("work"));
    }
}

TEST_F(NexusRun, SaysWhetherPaupIsRunning)
{
    file_ALI = "x.ali";
    search_programs_in("");
    play("", [] { write_nexus(); });
    EXPECT_TRUE(shows("KQ_PAUP")) << "without PAUP the file is there all the same";
    EXPECT_NE(read_file("work/x_0.nex").find("ntax=3 nchar=4;"), std::string::npos);
    EXPECT_TRUE(retain.empty());

    stand_in("my paup", "elsewhere");
    setenv("KQ_PAUP", path("elsewhere/my paup").c_str(), 1);
    play("", [] { write_nexus(); });
    EXPECT_TRUE(shows("The file for PAUP4 has been written and is currently analysed"));
    EXPECT_EQ(wait_for("my paup_said"), "[-n]\n[x_1.nex]\n") << "the numbers go on";
}

TEST_F(NexusRun, WarnsAndWritesNothing)
{
    load({"****", "  --"});
    play("", [] { write_nexus(); });
    EXPECT_TRUE(shows("Your percent eliminates all the positions"));
    EXPECT_EQ(file_names("work"), std::vector<std::string>{});

    load({"ACGT", "ACGA"});
    file_ALI = "x.ali";
    for (const char* name : {"x_0.nex", "x_0.nbs"}) {
        std::filesystem::create_directories(path(std::string("work/") + name));
        play("", [] { write_nexus(); });
        EXPECT_TRUE(shows(name)) << "it is a directory";
        EXPECT_EQ(file_names("work"), std::vector<std::string>{name});
        EXPECT_TRUE(file_names(std::string("work/") + name).empty());
        std::filesystem::remove(path(std::string("work/") + name));
    }
}

TEST_F(NexusRun, TooManySpeciesAreRefusedBeforeAnythingIsAsked)
{
    std::vector<int> half(max_species / 2);
    std::iota(half.begin(), half.end(), 0);
    load(std::vector<std::string>(half.size(), "AC"), {half, half});
    EXPECT_FALSE(too_many_to_analyse());
    append_member(add_ensemble(), 0);
    for (const auto command : {write_nexus, tout_auto}) {
        EXPECT_EQ(play("Q", command).ending, Ending::returned);
        play("", command);
        EXPECT_TRUE(shows("You can analyse at most 20000 species; the ensembles have 20001"));
    }
    EXPECT_EQ(file_names("work"), std::vector<std::string>{});
}

} // namespace
} // namespace kq
