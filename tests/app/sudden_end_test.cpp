// Signals and a lost X server: unsaved work is rescued. Brings an X server of its own; the program runs in a
// process of its own, which is this test program started again.
#include "app/sudden_end.h"
#include "core/edit.h"
#include "core/store.h"
#include "raster/grx.h"
#include "screen/text.h"
#include "screen/window.h"
#include "support/ali_folder.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdlib>
#include <filesystem>

using namespace kq;

namespace {

constexpr const char* alignment = "#16S\n#Bacteria\n>one\nACGU\n";

// Starts a program whose file descriptor `fd` is a pipe to us; the process, and our end in *from.
pid_t start(const std::vector<std::string>& words, int fd, int* from)
{
    std::array<int, 2> ends{};
    if (pipe(ends.data()) != 0) return -1;
    const pid_t child = fork();
    if (child == 0) {
        dup2(ends[1], fd);
        std::vector<char*> arguments;
        for (const auto& word : words)
            arguments.push_back(const_cast<char*>(word.c_str()));
        arguments.push_back(nullptr);
        execvp(arguments[0], arguments.data());
        _exit(127);
    }
    close(ends[1]);
    *from = ends[0];
    return child;
}

// The first line that comes, without its line feed; "" when the other end is closed.
std::string read_word(int from)
{
    std::string word;
    char c = 0;
    while (read(from, &c, 1) == 1 && c != '\n')
        word += c;
    close(from);
    return word;
}

int status_of(pid_t child)
{
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

// An X server of our own, as long as the object lives.
class Server {
public:
    Server()
    {
        int from = -1;
        process_ = start({"Xvfb", "-displayfd", "9", "-screen", "0", "900x700x24"}, 9, &from);
        const std::string number = read_word(from);
        running_ = !number.empty();
        if (running_)
            setenv("DISPLAY", (":" + number).c_str(), 1);
        else
            waitpid(process_, nullptr, 0);
    }
    ~Server() { stop(); }
    Server(const Server&) = delete;
    Server& operator=(const Server&) = delete;
    bool running() const { return running_; }
    void stop()
    {
        if (!running_) return;
        running_ = false;
        kill(process_, SIGTERM);
        waitpid(process_, nullptr, 0);
    }

private:
    pid_t process_ = -1;
    bool running_ = false;
};

constexpr int ready_fd = 9;

} // namespace

// Opens a window on unsaved work and waits for a key, or, when KQ_TEST_DRAWS is set, computes for a while,
// draws, and only then waits.
TEST(SuddenEnd, DISABLED_WorkInProgress)
{
    std::signal(SIGPIPE, SIG_DFL); // whoever started us may have had it ignored
    const test::AliFolder folder;
    folder.write("x.ali", alignment);
    ASSERT_EQ(folder.load("x.ali"), "");
    overwrite(0, 0, "*");
    mark_changed();
    open_window("kq");
    rescue_on_sudden_end();
    const std::string place = folder.path() + "\n";
    ASSERT_GT(write(ready_fd, place.data(), place.size()), 0);
    if (std::getenv("KQ_TEST_DRAWS")) {
        usleep(300000); // ends early when a signal comes
        _settextposition(1, 1);
        _outtext("a result");
        present_screen();
    }
    GrKeyRead();
}

TEST(SuddenEnd, SignalsAndALostServerRescueTheWork)
{
    setenv("GRX20DRV", "xwin", 1);
    struct Case {
        int signal, status; // signal 0: the server goes
    };
    for (const bool draws : {false, true})
        for (const auto& c :
             {Case{SIGTERM, 128 + SIGTERM}, {SIGHUP, 128 + SIGHUP}, {SIGINT, 128 + SIGINT}, {0, 1}}) {
            SCOPED_TRACE(c.signal);
            Server server;
            if (!server.running()) GTEST_SKIP() << "Xvfb is not there";
            if (draws) setenv("KQ_TEST_DRAWS", "1", 1);
            int from = -1;
            const pid_t child = start({"/proc/self/exe", "--gtest_filter=SuddenEnd.DISABLED_WorkInProgress",
                                       "--gtest_also_run_disabled_tests", "--gtest_print_time=0"},
                                      ready_fd, &from);
            const std::string place = read_word(from);
            ASSERT_NE(place, "");
            if (c.signal)
                kill(child, c.signal);
            else
                server.stop();
            EXPECT_EQ(status_of(child), c.status);
            EXPECT_EQ(test::read_bytes(place + "x_rescue.ali"), "#16S\n#Bacteria\n>one\n*CGU\n");
            EXPECT_EQ(test::read_bytes(place + "x.ali"), alignment);
            std::filesystem::remove_all(place);
        }
    unsetenv("KQ_TEST_DRAWS");
}
