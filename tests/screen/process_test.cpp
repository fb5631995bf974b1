#include "screen/process.h"
#include "support/screen_test.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <filesystem>

namespace kq {
namespace {

class Process : public test::ScreenTest {};

TEST_F(Process, ABackgroundProgramGetsItsArgumentsAndNothingElse)
{
    // It writes into a file what it got.
    write_file("kq_viewer", "#!/bin/sh\ncd " + root() +
                                "\n{ for a; do echo \"[$a]\"; done; readlink /proc/$$/fd/*; } > saying\n"
                                "mv saying said\n");
    std::filesystem::permissions(path("kq_viewer"), std::filesystem::perms::owner_all);
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
    }
    EXPECT_FALSE(start_in_background({}));
}

} // namespace
} // namespace kq
