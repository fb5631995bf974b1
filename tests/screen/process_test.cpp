#include "screen/files.h"
#include "screen/process.h"
#include "support/screen_test.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>

namespace kq {
namespace {

// A script that says into a file what it got: its arguments, its open files and the signals it ignores.
class Process : public test::ScreenTest {
protected:
    std::string said() const { return read_file("said"); }
    std::string program(std::string_view name)
    {
        write_file(name, "#!/bin/sh\n"
                         "cd \"" +
                             root() +
                             "\"\n"
                             "{ for a; do echo \"[$a]\"; done\n"
                             "  for f in /proc/$$/fd/*; do readlink \"$f\"; done\n"
                             "  grep SigIgn /proc/$$/status; } > saying\n"
                             "mv saying said\n");
        const std::string where = path(name);
        std::filesystem::permissions(where, std::filesystem::perms::owner_all);
        return where;
    }
    bool wait_until_said() const
    {
        for (int i = 0; i < 1000 && !has_file("said"); i++)
            usleep(10000);
        return has_file("said");
    }
};

TEST_F(Process, ABackgroundProgramGetsItsArgumentsAndNothingElse)
{
    const int other = ::open(root().c_str(), O_RDONLY); // not marked close-on-exec
    const std::array<std::string, 4> vector = {program("viewer"), "a b", "$(touch x);`y` 'z' \"", ""};
    ASSERT_TRUE(start_in_background(vector));
    close(other);
    EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1);
    EXPECT_EQ(errno, ECHILD) << "somebody would have to wait for it";
    ASSERT_TRUE(wait_until_said());
    const std::string text = said();
    EXPECT_EQ(text.find("[a b]\n[$(touch x);`y` 'z' \"]\n[]\n/dev/null\n"), 0u) << text;
    EXPECT_EQ(text.find(root() + "\n"), std::string::npos) << "an open file of this program";
    EXPECT_EQ(text.find("socket:"), std::string::npos);
}

TEST_F(Process, IsSearchedOnThePathWhenItHasNoDirectory)
{
    program("kq_viewer");
    const std::string before = std::getenv("PATH");
    setenv("PATH", (root() + ":" + before).c_str(), 1);
    const std::array<std::string, 1> vector = {"kq_viewer"};
    EXPECT_TRUE(start_in_background(vector));
    setenv("PATH", before.c_str(), 1);
    EXPECT_TRUE(wait_until_said());
}

TEST_F(Process, WhatCannotBeExecutedIsReported)
{
    write_file("text", "no program\n");
    const struct {
        std::string program;
        int reason;
    } cases[] = {
        {path("text"), EACCES}, {path("none"), ENOENT}, {"kq_no_such_program", ENOENT}, {"", ENOENT}};
    for (const auto& [name, reason] : cases) {
        EXPECT_FALSE(start_in_background(std::array{name})) << name;
        EXPECT_EQ(errno, reason) << name;
        EXPECT_FALSE(replace_program(name)) << name;
        EXPECT_EQ(errno, reason) << name;
    }
    EXPECT_FALSE(start_in_background({}));
}

// NewFile makes this program ignore SIGXFSZ, which others expect to end them.
TEST_F(Process, AReplacementKeepsTheProcessAndWhatItHadSaid)
{
    program("kel");
    NewFile(path("any")).commit();
    const pid_t child = fork();
    if (child == 0) {
        if (!std::freopen(path("out").c_str(), "w", stdout)) _exit(2);
        std::printf("before it");
        if (replace_program(path("none"))) _exit(3);
        replace_program(path("kel"));
        _exit(4);
    }
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(read_file("out"), "before it");
    // Signal 25 is bit 24 of the mask.
    const std::string text = said();
    const std::size_t at = text.find("SigIgn:");
    ASSERT_NE(at, std::string::npos) << text;
    EXPECT_EQ(std::stoull(text.substr(at + 7), nullptr, 16) & (1ULL << (SIGXFSZ - 1)), 0u) << text;
}

} // namespace
} // namespace kq
