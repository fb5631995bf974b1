// The automatic analysis, from the editor and from the tree, and what ends it early.
#include "analysis/analysed.h"
#include "analysis/analysis_run.h"
#include "analysis/distance_matrix.h"
#include "analysis/progress.h"
#include "app/program_test.h"
#include "core/options.h"
#include "core/store.h"
#include "raster/grx.h"
#include "screen/directories.h"
#include "screen/files.h"
#include "screen/system_memory.h"
#include "support/plain_analysis.h"
#include "taxonomy/frame_files.h"

#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <sstream>

namespace kq {
namespace {

using test::Ending;
using Names = std::vector<std::string>;

const std::string open_proteins = "Down Enter Enter ", open_small = "Down*4 Enter Enter ";
// The first groups of the tree, unnamed.
const std::string select_all = "Home F2 ", finish = "F3 Esc ";

std::string level(int number)
{
    return "BackSpace " + std::to_string(number) + " Enter*3 ";
}

// The alignment in the store as the plain version takes it.
plain::Analysis stored_analysis()
{
    plain::Analysis stored;
    stored.file = file_ALI;
    stored.file_date = date_fichier(dir_SEQ + file_ALI);
    stored.today = date();
    stored.colours = file_COL;
    stored.groups = file_NOM;
    stored.type = type_seq;
    stored.columns = nb_nuc_tot;
    stored.identifier_option = opt_identificateur;
    stored.all_columns_shown = opt_nogap != 0;
    for (int s = 0; s < nb_spec; s++)
        stored.species.push_back({std::string(identifier(s)), test::row_text(s)});
    for (int e = 0; e < nb_ens; e++)
        stored.ensembles.emplace_back(members(e).begin(), members(e).end());
    std::istringstream matrix(test::read_bytes(dir_ZOLTEXE + "IDENTITE.MAT"));
    for (auto& weights : stored.identity)
        for (double& weight : weights)
            matrix >> weight;
    return stored;
}

class AnalysisRun : public test::ProgramTest {
protected:
    void SetUp() override
    {
        ProgramTest::SetUp();
        remember("DEMO", "demo");
        work_in("work");
        stop_clock(1179300000);
    }
    ~AnalysisRun() override
    {
        set_escape(nullptr);
        set_system_root("");
    }

    // The files in the working directory with their bytes, which are removed.
    std::map<std::string, std::string> take_files() const
    {
        std::map<std::string, std::string> files;
        for (const auto& name : file_names("work")) {
            files[name] = read_file("work/" + name);
            std::filesystem::remove(path("work/" + name));
        }
        return files;
    }
    static Names names_of(const std::map<std::string, std::string>& files)
    {
        Names names;
        for (const auto& [name, bytes] : files)
            names.push_back(name);
        return names;
    }
};

const Names files_of_level[] = {
    {"-0.arb", "-0.mat", "-0.nbm"},
    {"-1.arb", "-1.mat", "-1.nbm", "_0.mac", "_0.nbs"},
    {"-2.arb", "-2.mat", "-2.nbm", "_1.nbs", "_1.pml", "_2.nbs", "_2.puz", "_3.nbs", "_3.njb", "_4.nbs",
     "_4.njb", "_5.nbs", "_5.njb"},
};

// In byte order.
Names expected_files(const std::string& alignment, int level)
{
    Names names;
    for (int i = 0; i < level; i++)
        for (const auto& name : files_of_level[i])
            names.push_back(alignment + name);
    std::ranges::sort(names);
    return names;
}

TEST_F(AnalysisRun, EachLevelWritesItsFilesFromTheEditorAndFromTheTree)
{
    const std::pair<std::string, std::string> alignments[] = {{open_proteins, "ovomucoid"},
                                                              {open_small, "ssu_small"}};
    for (const auto& [open, name] : alignments) {
        std::map<std::string, std::string> last;
        for (int i = 1; i <= 3; i++) {
            // The second run overwrites the first.
            EXPECT_EQ(run(open + select_all + finish + "F7 Enter*3 F7 " + level(i)), Ending::script_ended);
            last = take_files();
            EXPECT_EQ(names_of(last), expected_files(name, i));
            EXPECT_EQ(dist, nullptr);
        }
        plain::Analysis analysis = stored_analysis();
        analysis.level = 3;
        EXPECT_TRUE(last == plain::analysis_files(analysis)) << name;
        EXPECT_EQ(run(open + select_all + "S-F7 " + level(3)), Ending::script_ended);
        EXPECT_TRUE(take_files() == last) << name << ": the tree stores the selection first";
    }
}

TEST_F(AnalysisRun, NothingIsLeftOnTheScreen)
{
    for (const std::string geometry : {"34\n80\n", "20\n40\n"}) {
        write_file("zolt/data/pyx.sys", "0\n14\n8\n" + geometry);
        const std::string to_tree = open_small + select_all, to_editor = to_tree + finish;
        for (const auto& [before, keys] : {std::pair{to_editor, "F7 "}, std::pair{to_tree, "S-F7 "}}) {
            EXPECT_EQ(run(before), Ending::script_ended);
            const std::string screen = screen_dump();
            for (const auto& rest : {level(1), std::string("Esc")}) {
                EXPECT_EQ(run(before + keys + rest), Ending::script_ended);
                EXPECT_EQ(shows("Written to"), rest != "Esc");
                EXPECT_EQ(run(before + keys + rest + " Q"), Ending::script_ended);
                EXPECT_EQ(screen_dump(), screen) << keys << rest;
            }
        }
    }
}

TEST_F(AnalysisRun, ABoxCoversNoMoreThanItself)
{
    const auto all_lines = [] {
        Names lines;
        for (int i = 1; i <= _nb_line; i++)
            lines.push_back(screen_line(i));
        return lines;
    };
    EXPECT_EQ(run(open_small + select_all + finish), Ending::script_ended);
    const Names before = all_lines();
    const auto pixels = GrCopyPixels();
    bool slow_writing_seen = false;
    set_escape([&] {
        const Names now = all_lines();
        int covered = 0;
        for (std::size_t i = 0; i < before.size(); i++)
            covered += now[i] != before[i];
        EXPECT_LE(covered, 3) << screen_dump();
        slow_writing_seen |= shows("WRITING ssu_small-0.mat");
        if (has_file("work/ssu_small-0.nbm") && !slow_writing_seen) usleep(250000); // a slow disk
        return false;
    });
    EXPECT_EQ(play(level(1), tout_auto).ending, Ending::returned);
    EXPECT_TRUE(slow_writing_seen);
    EXPECT_EQ(all_lines(), before);
    EXPECT_TRUE(GrCopyPixels() == pixels);
}

TEST_F(AnalysisRun, WithoutAnySpeciesTheTreeWarns)
{
    for (const char* key : {"S-F6", "S-F7"}) {
        EXPECT_EQ(run(open_small + key), Ending::script_ended);
        EXPECT_TRUE(shows("You must select at least one species"));
    }
    // Another ensemble has some: the one being made may be empty.
    EXPECT_EQ(run(open_small + "Home Up F2 " + finish + "F3 \"Y\" S-F7 Enter*3"), Ending::script_ended);
    EXPECT_EQ(names_of(take_files()), expected_files("ssu_small", 1));
}

TEST_F(AnalysisRun, TooFewSpeciesForTreesGiveTheOtherFiles)
{
    const std::string one_species = open_small + "Home Up Enter Enter Esc S-F7 " + level(3);
    EXPECT_EQ(run(one_species), Ending::script_ended);
    EXPECT_TRUE(shows("A tree needs at least three species"));
    EXPECT_EQ(run(one_species + " Enter"), Ending::script_ended);
    EXPECT_FALSE(shows("A tree needs")) << "it is said once";
    Names names = expected_files("ssu_small", 3);
    std::erase_if(names, [](const std::string& name) { return name.ends_with(".arb"); });
    EXPECT_EQ(names_of(take_files()), names);
}

// ESCAPE sooner or later: at the n-th moment at which somebody looks for it.
TEST_F(AnalysisRun, EscapeLeavesCompleteFilesOnly)
{
    for (const auto& open : {open_proteins, open_small}) {
        EXPECT_EQ(run(open + select_all + finish), Ending::script_ended);
        const auto analyse = [this] { return play(level(3), tout_auto).ending; };
        EXPECT_EQ(analyse(), Ending::returned);
        const auto complete = take_files();
        std::size_t most_files = 0;
        int looks = 0, left = -1;
        set_escape([&left] { return left-- == 0; });
        for (; left < 0; looks += 1 + looks / 8) {
            left = looks;
            EXPECT_EQ(analyse(), Ending::returned);
            const auto files = take_files();
            for (const auto& [name, bytes] : files) {
                ASSERT_TRUE(complete.contains(name)) << name << " after " << looks << " looks";
                ASSERT_EQ(complete.at(name), bytes) << name << " after " << looks << " looks";
            }
            EXPECT_EQ(dist, nullptr);
            if (left < 0) most_files = std::max(most_files, files.size());
        }
        set_escape(nullptr);
        EXPECT_GT(looks, 20) << "one or more for each file and each matrix";
        EXPECT_GT(most_files, files_of_level[0].size());
        EXPECT_LT(most_files, complete.size());
    }
}

TEST_F(AnalysisRun, WhatIsKnownBeforeTheStartIsSaidAndNothingIsWritten)
{
    const std::string keys = open_small + select_all + finish + "F7 ";

    // Fragments have a gap somewhere at every position.
    EXPECT_EQ(run("Down*3 Enter Enter " + select_all + finish + "F7 Enter BackSpace 0 Enter*2"),
              Ending::script_ended);
    EXPECT_EQ(take_files().size(), 0U);
    EXPECT_TRUE(shows("Your percent eliminates all the positions"));

    std::filesystem::create_directory(path("proc"));
    write_file("proc/meminfo", "MemAvailable: 100 kB\n");
    set_system_root(root());
    EXPECT_EQ(run(keys + level(1)), Ending::script_ended);
    EXPECT_TRUE(shows("Insufficient available memory to compute distance matrix"));
    EXPECT_EQ(take_files().size(), 0U);
    set_system_root("");

    // The last file of the run cannot be written: it is a directory.
    std::filesystem::create_directories(path("work/ssu_small_5.njb"));
    EXPECT_EQ(run(keys + level(3)), Ending::script_ended);
    EXPECT_TRUE(shows("ssu_small_5.njb"));
    EXPECT_EQ(dist, nullptr) << "freed, although the script has ended in a warning";
    EXPECT_TRUE(retain.empty());
    EXPECT_EQ(file_names("work"), Names{"ssu_small_5.njb"});
    EXPECT_EQ(run(keys + level(2)), Ending::script_ended);
    EXPECT_EQ(file_names("work").size(), 9U);
}

} // namespace
} // namespace kq
