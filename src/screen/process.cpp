// platform: starting other programs.
#include "screen/process.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <vector>

namespace kq {

namespace {

bool (*replacement_program)(const std::string& path) = nullptr;

// The other program gets the standard streams only. Nothing is closed yet: when it cannot be started, this
// one still needs its window.
void close_the_rest_on_exec()
{
    close_range(3, ~0U, CLOSE_RANGE_CLOEXEC);
}

int read_again(int fd, void* into, std::size_t size)
{
    ssize_t count = 0;
    do
        count = read(fd, into, size);
    while (count < 0 && errno == EINTR);
    return static_cast<int>(count);
}

// In the child: says through the pipe why there is no program.
void tell(int report, int reason)
{
    [[maybe_unused]] const ssize_t written = write(report, &reason, sizeof reason);
}

// The handlers of this program would reach its window from the child, which shares it until the exec. What is
// ignored from outside stays ignored; SIGXFSZ is ignored by this program only.
void reset_signals()
{
    for (int number = 1; number < NSIG; number++) {
        struct sigaction action {};
        if (sigaction(number, nullptr, &action) != 0) continue;
        if (action.sa_handler != SIG_IGN || number == SIGXFSZ) signal(number, SIG_DFL);
    }
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
}

// In the child: becomes the program, or reports why not. Only calls that are safe after a fork.
[[noreturn]] void become(char* const* arguments, int report)
{
    reset_signals();
    const int nowhere = open("/dev/null", O_RDWR);
    if (nowhere >= 0) {
        dup2(nowhere, STDIN_FILENO);
        dup2(nowhere, STDOUT_FILENO);
    }
    close_the_rest_on_exec();
    execvp(arguments[0], arguments);
    tell(report, errno);
    _exit(127);
}

} // namespace

bool replace_program(const std::string& path)
{
    if (replacement_program) return replacement_program(path);
    std::fflush(stdout);
    close_the_rest_on_exec();
    const auto before = signal(SIGXFSZ, SIG_DFL);
    execl(path.c_str(), path.c_str(), static_cast<char*>(nullptr));
    const int reason = errno;
    signal(SIGXFSZ, before);
    errno = reason;
    return false;
}

void set_replacement(bool (*replacement)(const std::string& path))
{
    replacement_program = replacement;
}

bool start_in_background(std::span<const std::string> argument_vector)
{
    if (argument_vector.empty()) {
        errno = EINVAL;
        return false;
    }
    std::vector<char*> arguments;
    for (const std::string& argument : argument_vector)
        arguments.push_back(const_cast<char*>(argument.c_str()));
    arguments.push_back(nullptr);
    int report[2];
    if (pipe2(report, O_CLOEXEC) != 0) return false;

    sigset_t all, before;
    sigfillset(&all);
    sigprocmask(SIG_SETMASK, &all, &before);
    // The child in between ends at once, so that nobody has to wait for the program itself.
    const pid_t between = fork();
    int reason = between < 0 ? errno : 0;
    if (between == 0) {
        setsid();
        const pid_t program = fork();
        if (program == 0) become(arguments.data(), report[1]);
        if (program < 0) tell(report[1], errno);
        _exit(0);
    }
    sigprocmask(SIG_SETMASK, &before, nullptr);
    close(report[1]);
    if (between > 0) {
        while (waitpid(between, nullptr, 0) < 0 && errno == EINTR) {
        }
        // The pipe closes without a word when the program has taken the child's place.
        if (read_again(report[0], &reason, sizeof reason) != sizeof reason) reason = 0;
    }
    close(report[0]);
    errno = reason;
    return reason == 0;
}

} // namespace kq
