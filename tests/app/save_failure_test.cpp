// A save that fails or is killed anywhere: a complete alignment is on disk under its name each time.
#include "core/ali_reader.h"
#include "core/ali_writer.h"
#include "core/edit.h"
#include "core/store.h"
#include "screen/directories.h"
#include "screen/files.h"
#include "support/ali_folder.h"
#include "support/system_calls.h"

#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fstream>

using namespace kq;
using kq::test::AliFolder;
using kq::test::Interference;
using kq::test::run_child;

namespace {

using Names = std::vector<std::string>;

// A small file and one of several blocks; with and without an older backup.
struct Scene {
    int columns;
    bool has_backup;
};

class SavedFolder {
public:
    explicit SavedFolder(const Scene& scene)
        : columns_(static_cast<std::size_t>(scene.columns))
    {
        folder_.write("x.ali", before());
        if (scene.has_backup) folder_.write("x.bak", older());
        if (folder_.load("x.ali") != "") ADD_FAILURE() << "the file does not load";
        overwrite(1, 0, "TT");
        mark_changed();
    }
    const AliFolder& folder() const { return folder_; }
    std::string older() const { return "an older version"; }
    std::string before() const { return text("AC"); }
    std::string after() const { return text("TT"); }
    std::string alignment() const { return folder_.read("x.ali"); }
    std::string backup() const { return folder_.read("x.bak"); }

private:
    AliFolder folder_;
    std::size_t columns_;
    std::string text(const std::string& start) const
    {
        return "#16S\n#Bacteria\n>one\n" + std::string(columns_, 'A') + "\n>two\n" + start +
               std::string(columns_ - 2, 'G') + "\n";
    }
};

int save_in_child()
{
    return save_ali().empty() ? 0 : 1;
}

constexpr Scene scenes[] = {{100, true}, {100, false}, {140000, true}};

// What has to hold after a save that ended by itself.
void expect_saved_or_untouched(const SavedFolder& s, const Scene& scene, int status)
{
    if (status == 0) {
        EXPECT_TRUE(s.alignment() == s.after());
        EXPECT_TRUE(s.backup() == s.before());
        EXPECT_EQ(s.folder().names(), (Names{"x.ali", "x.bak"}));
    } else {
        EXPECT_EQ(status, 1);
        EXPECT_TRUE(s.alignment() == s.before());
        EXPECT_EQ(s.backup(), scene.has_backup ? s.older() : "");
        EXPECT_EQ(s.folder().names(), scene.has_backup ? (Names{"x.ali", "x.bak"}) : Names{"x.ali"});
    }
}

// Runs `work` in a child with mounts of its own; 99 when this system does not allow that.
int with_own_mounts(const std::function<int()>& work)
{
    const pid_t child = fork();
    if (child == 0) {
        const bool own = unshare(CLONE_NEWNS) == 0 || unshare(CLONE_NEWUSER | CLONE_NEWNS) == 0;
        if (!own || mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0) _exit(99);
        _exit(work());
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : 98;
}

} // namespace

TEST(SaveFailure, EverySingleCallMayFail)
{
    for (const auto& scene : scenes) {
        int calls = 0, refusals = 0;
        {
            const SavedFolder s(scene);
            const auto run = run_child({}, save_in_child);
            if (!run.traced) GTEST_SKIP() << "processes cannot be traced here";
            EXPECT_EQ(run.status, 0);
            expect_saved_or_untouched(s, scene, run.status);
            calls = run.file_calls;
        }
        ASSERT_GT(calls, 15); // two files opened, written, flushed, closed and renamed
        for (int n = 1; n <= calls; n++) {
            SCOPED_TRACE("call " + std::to_string(n));
            const SavedFolder s(scene);
            const auto run = run_child({Interference::fail_one, n}, save_in_child);
            expect_saved_or_untouched(s, scene, run.status);
            refusals += run.status;
        }
        EXPECT_GE(refusals, 11); // an open, write, flush, close and rename of each, and reading the old file
    }
}

TEST(SaveFailure, KilledOrWithoutADiskFromAnyCallOnItLeavesACompleteFile)
{
    for (const auto kind : {Interference::fail_from, Interference::kill})
        for (const auto& scene : scenes)
            for (int n = 1;; n++) {
                SCOPED_TRACE("call " + std::to_string(n));
                const SavedFolder s(scene);
                const auto run = run_child({kind, n}, save_in_child);
                if (!run.traced) GTEST_SKIP() << "processes cannot be traced here";
                EXPECT_TRUE(s.alignment() == s.before() || s.alignment() == s.after());
                const std::string backup = s.backup();
                EXPECT_TRUE(backup == (scene.has_backup ? s.older() : "") || backup == s.before());
                if (!run.killed && run.file_calls < n) break;
                // The next save cleans up what was left.
                EXPECT_EQ(save_ali(), "");
                EXPECT_TRUE(s.alignment() == s.after());
                EXPECT_EQ(s.folder().names(), (Names{"x.ali", "x.bak"}));
            }
}

TEST(SaveFailure, AFileSizeLimitIsAWarning)
{
    const Scene scene{140000, true};
    for (const rlim_t limit : {1U, 4096U, 150000U, 200000U, 280000U}) {
        const SavedFolder s(scene);
        const pid_t child = fork();
        if (child == 0) {
            const rlimit sizes{limit, limit};
            setrlimit(RLIMIT_FSIZE, &sizes);
            _exit(save_in_child());
        }
        int status = 0;
        waitpid(child, &status, 0);
        ASSERT_TRUE(WIFEXITED(status)) << "ended by signal " << WTERMSIG(status);
        EXPECT_EQ(WEXITSTATUS(status), 1);
        expect_saved_or_untouched(s, scene, 1);
    }
}

// 0: everything as it should be; 1..98: which step was not; 99: mounting is not allowed here.
TEST(SaveFailure, AFullDiskIsAWarning)
{
    const Scene scene{140000, true};
    const SavedFolder s(scene);
    const int step = with_own_mounts([&] {
        if (mount("tmpfs", dir_SEQ.c_str(), "tmpfs", 0, "size=600k") != 0) return 99;
        s.folder().write("x.ali", s.before());
        s.folder().write("x.bak", s.older());
        if (save_ali().find("not enough room") == std::string::npos) return 1;
        if (s.alignment() != s.before() || s.backup() != s.older()) return 2;
        if (s.folder().names() != Names{"x.ali", "x.bak"}) return 3;
        // Room for the new file and the copy, when nothing else takes it: then it is just saved.
        mount("tmpfs", dir_SEQ.c_str(), "tmpfs", MS_REMOUNT, "size=1200k");
        if (!save_ali().empty() || s.alignment() != s.after() || s.backup() != s.before()) return 4;
        // Not a byte of room: what makes room is still possible.
        std::ofstream(s.folder().path("fill")) << std::string(2'000'000, 'x');
        if (cannot_write(dir_SEQ, 1).empty() || !cannot_write(dir_SEQ, 0).empty()) return 5;
        return 0;
    });
    if (step == 99) GTEST_SKIP() << "file systems cannot be mounted here";
    EXPECT_EQ(step, 0);
}

TEST(SaveFailure, ADirectoryThatCannotBeWrittenIsAWarning)
{
    const Scene scene{100, true};
    const SavedFolder s(scene);
    const auto refused = [&] {
        if (save_ali().find("not possible to write in the directory") == std::string::npos) return 1;
        return s.alignment() == s.before() && s.backup() == s.older() ? 0 : 2;
    };
    int step = 99;
    if (geteuid() != 0) {
        chmod(dir_SEQ.c_str(), 0555);
        step = refused();
        chmod(dir_SEQ.c_str(), 0755);
    } else { // root may write anywhere but on what is mounted read-only
        step = with_own_mounts([&] {
            const char* directory = dir_SEQ.c_str();
            if (mount(directory, directory, nullptr, MS_BIND, nullptr) != 0) return 99;
            if (mount(nullptr, directory, nullptr, MS_REMOUNT | MS_BIND | MS_RDONLY, nullptr) != 0) return 99;
            return refused();
        });
    }
    if (step == 99) GTEST_SKIP() << "a directory cannot be made read-only here";
    EXPECT_EQ(step, 0);
}
