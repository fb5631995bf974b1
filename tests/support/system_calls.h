// Runs work in a child process and interferes with its system calls, one after the other.
#pragma once

#include <functional>

namespace kq::test {

struct Interference {
    enum Kind {
        none,      // only counts
        kill,      // the process is killed when it makes the n-th system call
        fail_one,  // the n-th call on files fails (EIO)
        fail_from, // the n-th and every later call on files fails
    };
    Kind kind = none;
    int n = 1; // from 1
};

struct ChildRun {
    bool traced = false; // false: this system does not let a process be traced
    int calls = 0;       // system calls made
    int file_calls = 0;  // those on files
    bool killed = false;
    int status = -1; // what `work` returned, 0..99
};

ChildRun run_child(const Interference& interference, const std::function<int()>& work);

} // namespace kq::test
