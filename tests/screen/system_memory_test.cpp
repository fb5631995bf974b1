// How much memory can be had.
#include "screen/system_memory.h"
#include "support/ali_folder.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <limits>

namespace kq {
namespace {

constexpr std::uint64_t megabyte = 1024 * 1024;

class SystemMemory : public testing::Test {
protected:
    ~SystemMemory() override { set_system_root(""); }

    void write(const std::string& below, const std::string& text) const
    {
        std::filesystem::create_directories(std::filesystem::path(folder_.path(below)).parent_path());
        folder_.write(below, text);
    }
    test::Folder folder_;
};

TEST_F(SystemMemory, TheLeastOfMachineAndControlGroups)
{
    set_system_root(folder_.path());
    EXPECT_EQ(available_memory(), std::numeric_limits<std::uint64_t>::max()) << "nothing is known";
    write("proc/meminfo", "MemTotal:  9000000 kB\nMemFree: 1 kB\nMemAvailable:    4096000 kB\nCached: x\n");
    EXPECT_EQ(available_memory(), 4000 * megabyte);

    // The group has 500 MB left, with the 300 MB of files that it would give up; the one around it 200 MB.
    write("proc/self/cgroup", "4:memory:/old\n0::/outer/inner\n");
    const std::string inner = "sys/fs/cgroup/outer/inner/memory.";
    write(inner + "max", std::to_string(1000 * megabyte) + '\n');
    write(inner + "current", std::to_string(800 * megabyte) + '\n');
    write(inner + "stat", "anon 5\ninactive_file " + std::to_string(200 * megabyte) + "\nactive_file " +
                              std::to_string(100 * megabyte) + '\n');
    EXPECT_EQ(available_memory(), 500 * megabyte);
    const std::string outer = "sys/fs/cgroup/outer/memory.";
    write(outer + "max", std::to_string(1000 * megabyte) + '\n');
    write(outer + "current", std::to_string(800 * megabyte) + '\n');
    EXPECT_EQ(available_memory(), 200 * megabyte);
    write(outer + "max", "max\n");
    write("sys/fs/cgroup/memory.max", "1048576\n"); // the root, which a container sees as its own
    write("sys/fs/cgroup/memory.current", "9048576\n");
    EXPECT_EQ(available_memory(), 0U);
}

// What a child that may take 64 MB more than it has finds wrong: 0 when all is well. `size` is what the
// system calls what it has.
int under_limit(__rlimit_resource_t resource, std::string_view size)
{
    constexpr std::uint64_t left = 64 * megabyte;
    const pid_t child = fork();
    if (child == 0) {
        std::uint64_t kilobytes = 0;
        std::ifstream status("/proc/self/status");
        for (std::string word; kilobytes == 0 && status >> word;)
            if (word == size) status >> kilobytes;
        rlimit limit{};
        getrlimit(resource, &limit);
        limit.rlim_cur = kilobytes * 1024 + left;
        setrlimit(resource, &limit);
        const std::uint64_t found = available_memory();
        _exit(kilobytes == 0 ? 1 : found > left + megabyte ? 2 : found + megabyte < left ? 3 : 0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : 100;
}

TEST_F(SystemMemory, TheLimitsOfTheProcess)
{
    set_system_root(folder_.path());
    EXPECT_EQ(under_limit(RLIMIT_AS, "VmSize:"), 0);
    EXPECT_EQ(under_limit(RLIMIT_DATA, "VmData:"), 0);
}

} // namespace
} // namespace kq
