// How much memory can be had.
#include "screen/system_memory.h"
#include "support/ali_folder.h"

#include <gtest/gtest.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
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

// The status of a child that has `limit` bytes of a resource left: 0 when all is well.
int under_limit(int resource, std::uint64_t bytes_left)
{
    const pid_t child = fork();
    if (child == 0) {
        const auto most = std::numeric_limits<std::uint64_t>::max();
        rlimit limit{};
        // As much as is taken now and these bytes more, found by trying.
        std::uint64_t low = 0, high = std::uint64_t{1} << 50;
        while (high - low > 4096) {
            limit.rlim_cur = limit.rlim_max = low + (high - low) / 2;
            rlimit old{};
            getrlimit(static_cast<__rlimit_resource_t>(resource), &old);
            limit.rlim_max = old.rlim_max;
            setrlimit(static_cast<__rlimit_resource_t>(resource), &limit);
            void* const block = mmap(nullptr, bytes_left, PROT_READ | PROT_WRITE,
                                     MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
            (block == MAP_FAILED ? low : high) = limit.rlim_cur;
            if (block != MAP_FAILED) munmap(block, bytes_left);
        }
        limit.rlim_cur = high;
        setrlimit(static_cast<__rlimit_resource_t>(resource), &limit);
        const std::uint64_t left = available_memory();
        if (left == most) _exit(1);
        if (left > bytes_left + megabyte) _exit(2);
        _exit(left + megabyte < bytes_left ? 3 : 0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : 100;
}

TEST_F(SystemMemory, TheLimitsOfTheProcess)
{
    set_system_root(folder_.path());
    EXPECT_EQ(under_limit(RLIMIT_AS, 64 * megabyte), 0);
    EXPECT_EQ(under_limit(RLIMIT_DATA, 64 * megabyte), 0);
}

} // namespace
} // namespace kq
