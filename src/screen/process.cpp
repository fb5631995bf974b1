// platform: starting other programs.
#include "screen/process.h"

#include "screen/cleanup.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <sstream>
#include <thread>
#include <utility>
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

// In the child: the program in its place, or a word about why not. Only calls that are safe after a fork.
[[noreturn]] void become(char* const* arguments, int report)
{
    reset_signals();
    close_the_rest_on_exec();
    execvp(arguments[0], arguments);
    tell(report, errno);
    _exit(127);
}

// In the child: puts a file in the place of a standard stream.
bool redirect(int stream, const char* path, int flags)
{
    const int file = open(path, flags, 0666);
    return file >= 0 && dup2(file, stream) >= 0;
}

struct Forked {
    pid_t process; // -1 when there is none
    int reason;    // what it told; 0 = nothing, it has become the program
};

// Runs `child`, which does not return, in a new process, and hears what it has to tell.
Forked fork_and_hear(const std::function<void(int report)>& child)
{
    int report[2];
    if (pipe2(report, O_CLOEXEC) != 0) return {-1, errno};
    sigset_t all, before;
    sigfillset(&all);
    sigprocmask(SIG_SETMASK, &all, &before);
    Forked forked{fork(), 0};
    if (forked.process == 0) child(report[1]);
    if (forked.process < 0) forked.reason = errno;
    sigprocmask(SIG_SETMASK, &before, nullptr);
    close(report[1]);
    // The pipe closes without a word when the program has taken the child's place.
    int told = 0;
    if (read_again(report[0], &told, sizeof told) == sizeof told) forked.reason = told;
    close(report[0]);
    return forked;
}

int wait_for(pid_t process)
{
    int status = 0;
    while (waitpid(process, &status, 0) < 0 && errno == EINTR) {
    }
    return status;
}

// The argument vector as exec takes it.
std::vector<char*> pointers_to(std::span<const std::string> argument_vector)
{
    std::vector<char*> pointers;
    for (const std::string& argument : argument_vector)
        pointers.push_back(const_cast<char*>(argument.c_str()));
    pointers.push_back(nullptr);
    return pointers;
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
    const std::vector<char*> arguments = pointers_to(argument_vector);
    // The child in between ends at once, so that nobody has to wait for the program itself.
    const Forked between = fork_and_hear([&arguments](int report) {
        setsid();
        const pid_t program = fork();
        if (program == 0) {
            redirect(STDIN_FILENO, "/dev/null", O_RDONLY);
            redirect(STDOUT_FILENO, "/dev/null", O_WRONLY);
            become(arguments.data(), report);
        }
        if (program < 0) tell(report, errno);
        _exit(0);
    });
    if (between.process > 0) wait_for(between.process);
    errno = between.reason;
    return between.reason == 0;
}

std::string chosen_program(const char* variable, std::string_view usual)
{
    const char* const chosen = std::getenv(variable);
    if (!chosen || !*chosen) return std::string(usual);
    std::error_code failed; // without a current directory the path stays as it is
    const bool is_path = std::strchr(chosen, '/') != nullptr;
    const std::string whole = is_path ? std::filesystem::absolute(chosen, failed).string() : "";
    return whole.empty() ? chosen : whole;
}

// ---- programs that are waited for

namespace {

using std::chrono::milliseconds;
constexpr milliseconds nap{10};          // between two looks at the program
constexpr milliseconds time_to_end{500}; // from SIGTERM to SIGKILL

// While a program is waited for, what its children leave behind becomes this program's to wait for, and the
// system keeps the status of each: it would not where this program was started with SIGCHLD ignored.
class Parenthood {
public:
    Parenthood()
        : before_(signal(SIGCHLD, SIG_DFL))
    {
        prctl(PR_SET_CHILD_SUBREAPER, 1);
    }
    ~Parenthood()
    {
        prctl(PR_SET_CHILD_SUBREAPER, 0);
        signal(SIGCHLD, before_);
    }
    Parenthood(const Parenthood&) = delete;
    Parenthood& operator=(const Parenthood&) = delete;

private:
    void (*before_)(int);
};

// A program with a process group of its own, which goes with this object.
class Child {
public:
    int start(std::span<const std::string> argument_vector, const RunOptions& options); // 0, or errno
    bool has_ended() const;
    void stop();
    int reap(); // its status, once it has ended

private:
    pid_t process_ = 0;
    Cleanup cleanup_{[this] {
        if (process_ > 0) stop();
    }};
};

int Child::start(std::span<const std::string> argument_vector, const RunOptions& options)
{
    const std::vector<char*> arguments = pointers_to(argument_vector);
    const auto [process, reason] = fork_and_hear([&](int report) {
        constexpr int anew = O_WRONLY | O_CREAT | O_TRUNC;
        const auto& [output, error, directory, go_on] = options;
        setpgid(0, 0);
        prctl(PR_SET_PDEATHSIG, SIGTERM);
        if ((directory.empty() || chdir(directory.c_str()) == 0) &&
            redirect(STDIN_FILENO, "/dev/null", O_RDONLY) &&
            (output.empty() || redirect(STDOUT_FILENO, output.c_str(), anew)) &&
            (error.empty() || redirect(STDERR_FILENO, error.c_str(), anew)))
            become(arguments.data(), report);
        tell(report, errno);
        _exit(127);
    });
    if (process > 0) process_ = process;
    if (process > 0 && reason != 0) reap();
    return reason;
}

// It stays to be reaped, so that its number, which is also that of the group, is not given to another.
bool Child::has_ended() const
{
    siginfo_t info{};
    if (waitid(P_PID, static_cast<id_t>(process_), &info, WEXITED | WNOHANG | WNOWAIT) == 0)
        return info.si_pid == process_;
    return errno != EINTR;
}

int Child::reap()
{
    const pid_t group = std::exchange(process_, 0);
    kill(-group, SIGKILL); // what it has left running
    const int status = wait_for(group);
    // None of it writes a file any more once its end has been seen.
    while (waitpid(-group, nullptr, 0) > 0 || errno == EINTR) {
    }
    return status;
}

void Child::stop()
{
    kill(-process_, SIGTERM);
    for (milliseconds waited{0}; waited < time_to_end && !has_ended(); waited += nap)
        std::this_thread::sleep_for(nap);
    reap();
}

} // namespace

RunResult run_program(std::span<const std::string> argument_vector, const RunOptions& options)
{
    if (argument_vector.empty()) return {RunResult::not_started, EINVAL};
    const Parenthood parenthood;
    std::fflush(stdout);
    Child child;
    if (const int reason = child.start(argument_vector, options)) return {RunResult::not_started, reason};
    while (!child.has_ended()) {
        if (options.go_on && !options.go_on()) {
            child.stop();
            return {RunResult::cancelled, 0};
        }
        std::this_thread::sleep_for(nap);
    }
    const int status = child.reap();
    if (WIFSIGNALED(status)) return {RunResult::killed, WTERMSIG(status)};
    return {RunResult::exited, WEXITSTATUS(status)};
}

std::string run_problem(std::string_view program, const RunResult& result)
{
    const std::string name(program), number = std::to_string(result.number);
    switch (result.ending) {
    case RunResult::not_started:
        return name + " could not be started (" + std::strerror(result.number) + ")";
    case RunResult::exited:
        return result.number == 0 ? "" : name + " has ended with status " + number;
    case RunResult::killed:
        return name + " was ended by signal " + number + " (" + strsignal(result.number) + ")";
    case RunResult::cancelled:
        return name + " has been cancelled";
    }
    return "";
}

bool program_found(const std::string& program)
{
    const auto executable = [](const std::string& path) {
        std::error_code gone; // in the meantime
        return access(path.c_str(), X_OK) == 0 && std::filesystem::is_regular_file(path, gone);
    };
    if (program.find('/') != std::string::npos) return executable(program);
    const char* const path = std::getenv("PATH");
    std::istringstream directories(path ? path : "");
    for (std::string directory; std::getline(directories, directory, ':');)
        if (!program.empty() && executable((directory.empty() ? "." : directory) + '/' + program))
            return true;
    return false;
}

} // namespace kq
