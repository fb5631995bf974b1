// platform: starting other programs. No shell is involved: names and arguments arrive as they are.
#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>

namespace kq {

// Puts the program at `path`, without arguments, in the place of this one: same process, same standard
// streams. Returns only when it cannot be started: false, with errno set, and this program as it was.
bool replace_program(const std::string& path);
// Tests replace what replace_program does; null = execl().
void set_replacement(bool (*replacement)(const std::string& path));

// Starts argument_vector[0], searched on PATH when it has no "/", and does not wait for it: it reads and
// writes /dev/null (standard error stays), belongs to a session of its own, and outlives this program. False,
// with errno set, when it cannot be executed.
bool start_in_background(std::span<const std::string> argument_vector);

// Whether there is a program of this name that may be executed: at its path, or on PATH when it has no "/".
bool program_found(const std::string& program);
// The program that an environment variable names, else the usual one. A path counts from the current
// directory, wherever the program will run.
std::string chosen_program(const char* variable, std::string_view usual);

// ---- programs that are waited for

struct RunOptions {
    // Files, made anew, that take what it writes to standard output and standard error; "" = where this
    // program's own goes.
    std::string output = "/dev/null", error = "/dev/null";
    // Its working directory, from which names of files count, those above too; "" = that of this program.
    std::string directory{};
    // Asked at least ten times a second while the program runs; false ends it. May throw, which ends it too.
    std::function<bool()> go_on{};
};

struct RunResult {
    enum Ending { not_started, exited, killed, cancelled };
    Ending ending = not_started;
    int number = 0; // the error number; the exit status; the signal; 0
    bool succeeded() const { return ending == exited && number == 0; }
};

// Runs argument_vector[0], searched on PATH when it has no "/", to its end. It reads /dev/null and has a
// process group of its own. When it ends, is cancelled (SIGTERM, a moment later SIGKILL) or this program
// ends, nothing of that group stays behind: all of it has ended when this returns or throws.
RunResult run_program(std::span<const std::string> argument_vector, const RunOptions& options = {});

// "PROGRAM could not be started (No such file or directory)" and the like, for a warning; "" after success.
std::string run_problem(std::string_view program, const RunResult& result);

} // namespace kq
