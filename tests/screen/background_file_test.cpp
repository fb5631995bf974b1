// Files that another thread writes, on disks that are slow, full or not there.
#include "screen/background_file.h"
#include "support/ali_folder.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <cstdlib>
#include <functional>

using namespace kq;

namespace {

// A disk that does not come to an end before it is told to.
constinit std::atomic<bool> disk_is_busy{false};

void release_disk()
{
    disk_is_busy = false;
    disk_is_busy.notify_all();
}

const std::string block(1 << 20, 'x');

bool go_on_always()
{
    return true;
}

int status_of_child(const std::function<int()>& work)
{
    const pid_t child = fork();
    if (child == 0) _exit(work());
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

} // namespace

// Stands before the system's own in this program.
extern "C" int fsync(int fd)
{
    disk_is_busy.wait(true);
    return static_cast<int>(syscall(SYS_fsync, fd));
}

TEST(BackgroundFile, AsksWhileTheDiskIsSlowAndIsThenComplete)
{
    const test::Folder folder;
    folder.write("x", "an older file");
    disk_is_busy = true;
    int asked = 0;
    BackgroundFile file(folder.path("x"), [&asked] {
        if (++asked == 5) release_disk(); // waiting without asking would never end
        return true;
    });
    std::string expected;
    for (int i = 0; i < 12; i++) {
        const std::string line = std::to_string(i) + block;
        EXPECT_TRUE(file.write(line));
        expected += line;
    }
    EXPECT_EQ(folder.read("x"), "an older file");
    EXPECT_TRUE(file.commit());
    EXPECT_TRUE(folder.read("x") == expected);
    EXPECT_EQ(folder.names().size(), 1U);
    EXPECT_EQ(file.error(), "");
}

TEST(BackgroundFile, StoppedItLeavesNothingEvenWhileTheDiskIsBusy)
{
    const test::Folder folder;
    folder.write("x", "an older file");
    disk_is_busy = true;
    bool stop = false;
    {
        BackgroundFile file(folder.path("x"), [&stop] { return !stop; });
        EXPECT_TRUE(file.write(block));
        EXPECT_TRUE(file.write("more"));
        stop = true;
        EXPECT_FALSE(file.commit()); // the disk is still at it
        EXPECT_EQ(file.error(), "");
        EXPECT_FALSE(file.write(block));
        EXPECT_FALSE(file.commit());
    }
    EXPECT_EQ(folder.names(), std::vector<std::string>{"x"});
    release_disk();

    {
        BackgroundFile(folder.path("y"), go_on_always).write(block);
    } // without commit
    BackgroundFile at_once(folder.path("y"), [] { return false; });
    EXPECT_FALSE(at_once.write("x"));
    EXPECT_FALSE(at_once.commit());
    EXPECT_EQ(folder.read("x"), "an older file");
    EXPECT_EQ(folder.names(), std::vector<std::string>{"x"});
}

TEST(BackgroundFile, AFullDiskIsAnErrorAndLeavesNothing)
{
    const test::Folder folder;
    const auto fill = [&folder] {
        BackgroundFile file(folder.path("x"), go_on_always);
        int written = 0;
        while (written < 1000 && file.write(block))
            written++;
        if (written == 1000 || file.commit()) return 1;
        if (file.error().find("File too large") == std::string::npos) return 2;
        return folder.names().empty() ? 0 : 3;
    };
    EXPECT_EQ(status_of_child([&] {
                  const rlimit sizes{3000000, 3000000};
                  setrlimit(RLIMIT_FSIZE, &sizes);
                  return fill();
              }),
              0);

    BackgroundFile nowhere(folder.path("none/x"), go_on_always);
    EXPECT_FALSE(nowhere.write("x"));
    EXPECT_FALSE(nowhere.commit());
    EXPECT_NE(nowhere.error().find("No such file"), std::string::npos);
}

TEST(BackgroundFile, TheEndOfTheProgramLeavesNothing)
{
    const test::Folder folder;
    const auto end = []() -> bool { std::exit(7); };
    EXPECT_EQ(status_of_child([&] { return BackgroundFile(folder.path("x"), end).write(block) ? 1 : 2; }), 7);
    EXPECT_TRUE(folder.names().empty());
}
