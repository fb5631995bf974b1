#include "raster/grx.h"
#include "screen/files.h"
#include "screen/private_directory.h"
#include "screen/process.h"
#include "support/screen_test.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <iterator>

namespace kq {
namespace {

class Process : public test::ScreenTest {
public:
    // A shell script of this name in the private directory; its path.
    std::string program(const std::string& name, const std::string& text) const
    {
        write_program(name, text);
        return path(name);
    }
    // Files of this process that are open.
    static std::size_t open_files()
    {
        const std::filesystem::directory_iterator all("/proc/self/fd");
        return static_cast<std::size_t>(std::distance(begin(all), end(all)));
    }
    // Whether there is still a process with the number that a file holds.
    bool runs(const std::string& file) const { return kill(std::stoi(read_file(file)), 0) == 0; }
};

TEST_F(Process, ABackgroundProgramGetsItsArgumentsAndNothingElse)
{
    // It writes into a file what it got.
    program("kq_viewer", "cd " + root() +
                             "\n{ for a; do echo \"[$a]\"; done; readlink /proc/$$/fd/*; } > saying\n"
                             "mv saying said\n");
    const std::string path_before = std::getenv("PATH");
    setenv("PATH", (root() + ":" + path_before).c_str(), 1);
    const int other = ::open(root().c_str(), O_RDONLY); // not marked close-on-exec
    EXPECT_TRUE(start_in_background(std::array<std::string, 3>{"kq_viewer", "$(touch x);`y` 'z' \"", ""}));
    ::close(other);
    setenv("PATH", path_before.c_str(), 1);
    EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1) << "somebody would have to wait for it";
    for (int i = 0; i < 1000 && !has_file("said"); i++)
        usleep(10000);
    const std::string text = read_file("said");
    EXPECT_EQ(text.find("[$(touch x);`y` 'z' \"]\n[]\n/dev/null\n"), 0U) << text;
    EXPECT_EQ(text.find(root() + "\n"), std::string::npos) << "an open file of this program: " << text;
}

TEST_F(Process, WhatCannotBeExecutedIsReported)
{
    write_file("text", "no program\n");
    const std::pair<std::string, int> cases[] = {
        {path("text"), EACCES}, {path("none"), ENOENT}, {"kq_no_such_program", ENOENT}, {"", ENOENT}};
    for (const auto& [name, reason] : cases) {
        EXPECT_FALSE(start_in_background(std::array{name})) << name;
        EXPECT_EQ(errno, reason) << name;
        EXPECT_FALSE(replace_program(name)) << name;
        EXPECT_EQ(errno, reason) << name;
        const RunResult result = run_program(std::array{name});
        EXPECT_EQ(result.ending, RunResult::not_started) << name;
        EXPECT_EQ(result.number, reason) << name;
    }
    EXPECT_FALSE(start_in_background({}));
    EXPECT_EQ(run_program({}).ending, RunResult::not_started);
    const std::array<std::string, 1> anything{"true"};
    EXPECT_EQ(run_program(anything, {.directory = path("none")}).number, ENOENT);
    EXPECT_EQ(run_problem("x", run_program(anything, {.output = path("none/file")})),
              "x could not be started (No such file or directory)");
}

TEST_F(Process, AProgramIsWaitedForAndSaysHowItEnded)
{
    const auto before = open_files();
    const auto other = File(std::fopen(path("other").c_str(), "w")); // not marked close-on-exec
    const struct {
        std::string text;
        RunResult::Ending ending;
        int number;
        std::string problem;
    } cases[] = {
        {"readlink /proc/$$/fd/0; readlink /proc/$$/fd/* | grep -c other; pwd; echo \"[$1]\"; echo bad >&2",
         RunResult::exited, 0, ""},
        {"exit 3", RunResult::exited, 3, "tool has ended with status 3"},
        {"kill -9 $$", RunResult::killed, 9, "tool was ended by signal 9 (Killed)"},
        // What it leaves behind holds its standard output.
        {"sh -c 'echo $$ > left; exec sleep 100' & sleep 0.1; exit 4", RunResult::exited, 4,
         "tool has ended with status 4"},
    };
    signal(SIGCHLD, SIG_IGN); // as this program may have been started
    for (const auto& c : cases) {
        int looks = 0;
        const auto look = [&looks] { return ++looks > 0; };
        const std::array<std::string, 2> call{program("tool", c.text), "$(touch x);`y` 'z' \""};
        const RunResult result = run_program(
            call, {.output = path("out"), .error = path("bad"), .directory = root(), .go_on = look});
        EXPECT_EQ(result.ending, c.ending) << c.text;
        EXPECT_EQ(result.number, c.number) << c.text;
        EXPECT_EQ(run_problem("tool", result), c.problem);
        EXPECT_EQ(result.succeeded(), c.problem.empty());
        if (&c == &cases[0]) {
            EXPECT_EQ(read_file("bad"), "bad\n");
            EXPECT_EQ(read_file("out"), "/dev/null\n0\n" + root() + "\n[" + call[1] + "]\n");
        }
    }
    signal(SIGCHLD, SIG_DFL);
    EXPECT_FALSE(runs("left"));
    EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1) << "somebody would have to wait for it";
    EXPECT_EQ(open_files(), before + 1);
}

TEST_F(Process, AProgramThatHangsIsEndedWithAllItHasStarted)
{
    // Neither it nor its child listens to SIGTERM.
    const std::array call{program("tool", "trap '' TERM; echo $$ > tool_number\n"
                                          "sh -c 'echo $$ > child_number; sleep 100; sleep 100'\n")};
    const auto started = [this] { return has_file("child_number") && !read_file("child_number").empty(); };
    for (const bool thrown : {false, true}) {
        std::filesystem::remove(path("child_number"));
        const auto go_on = [&] {
            if (started() && thrown) throw EndOfScript{};
            return !started();
        };
        const RunOptions options{.directory = root(), .go_on = go_on};
        if (thrown)
            EXPECT_THROW(run_program(call, options), EndOfScript);
        else
            EXPECT_EQ(run_program(call, options).ending, RunResult::cancelled);
        EXPECT_FALSE(runs("tool_number"));
        EXPECT_FALSE(runs("child_number"));
    }
    EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1);
}

TEST_F(Process, NothingStaysBehindWhenTheProgramEndsMeanwhile)
{
    setenv("TMPDIR", root().c_str(), 1);
    const std::array call{program("tool", "echo $$ > number; exec sleep 100")};
    const auto end_in_the_middle = [&] {
        const PrivateDirectory directory;
        std::filesystem::create_directory(directory.path_of("below"));
        const auto go_on = [this] {
            if (has_file("number") && !read_file("number").empty()) std::exit(7);
            return true;
        };
        run_program(call, {.directory = root(), .go_on = go_on});
    };
    EXPECT_EXIT(end_in_the_middle(), testing::ExitedWithCode(7), "");
    unsetenv("TMPDIR");
    EXPECT_FALSE(runs("number"));
    for (const std::string& name : file_names("."))
        EXPECT_NE(name.substr(0, 3), "kq_") << "a directory is left";
}

TEST_F(Process, APrivateDirectoryGoesAwayWithAllItHolds)
{
    const auto made_below = [this](const std::string& parent) {
        const PrivateDirectory directory;
        EXPECT_EQ(directory.path().find(path(parent) + "/kq_"), 0U) << directory.path() << directory.error();
        EXPECT_EQ(directory.path().find_first_of(".;", path(parent).size()), std::string::npos);
        std::filesystem::create_directories(directory.path_of("a/b"));
        EXPECT_TRUE(std::filesystem::exists(directory.path_of("a/b")));
        return directory.path();
    };
    std::filesystem::create_directories(path("a dir;x"));
    std::filesystem::create_directories(path("here"));
    work_in("here");
    setenv("TMPDIR", path("a dir;x").c_str(), 1);
    EXPECT_FALSE(std::filesystem::exists(made_below("a dir;x")));
    setenv("TMPDIR", path("none").c_str(), 1);
    EXPECT_FALSE(std::filesystem::exists(made_below("here")));
    unsetenv("TMPDIR");
    EXPECT_FALSE(std::filesystem::exists(made_below("here")));
}

} // namespace
} // namespace kq
