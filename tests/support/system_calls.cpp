#include "support/system_calls.h"

#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/user.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <iterator>

namespace kq::test {

namespace {

#if defined(__x86_64__)

constexpr long file_calls[] = {
    SYS_read,      SYS_write,     SYS_pread64,         SYS_pwrite64,
    SYS_open,      SYS_openat,    SYS_close,           SYS_stat,
    SYS_fstat,     SYS_lstat,     SYS_access,          SYS_newfstatat,
    SYS_rename,    SYS_renameat,  SYS_renameat2,       SYS_unlink,
    SYS_link,      SYS_unlinkat,  SYS_fsync,           SYS_flock,
    SYS_fdatasync, SYS_statfs,    SYS_fstatfs,         SYS_lseek,
    SYS_chmod,     SYS_ftruncate, SYS_statx,           SYS_faccessat,
    SYS_sendfile,  SYS_fadvise64, SYS_copy_file_range,
};

bool is_file_call(long number)
{
    return std::find(std::begin(file_calls), std::end(file_calls), number) != std::end(file_calls);
}

// Lets the stopped child run to the next entry to, or return from, a system call; false when it has ended.
bool to_next_stop(pid_t child, ChildRun& run)
{
    int status = 0;
    ptrace(PTRACE_SYSCALL, child, nullptr, nullptr);
    if (waitpid(child, &status, 0) < 0 || WIFSIGNALED(status)) {
        run.killed = true;
        return false;
    }
    if (WIFEXITED(status)) run.status = WEXITSTATUS(status);
    return WIFSTOPPED(status);
}

user_regs_struct registers_of(pid_t child)
{
    user_regs_struct registers{};
    ptrace(PTRACE_GETREGS, child, nullptr, &registers);
    return registers;
}

void follow(pid_t child, const Interference& interference, ChildRun& run)
{
    while (to_next_stop(child, run)) { // at the entry
        auto registers = registers_of(child);
        run.calls++;
        if (interference.kind == Interference::kill && run.calls == interference.n) kill(child, SIGKILL);
        bool fails = false;
        if (is_file_call(static_cast<long>(registers.orig_rax))) {
            run.file_calls++;
            fails = (interference.kind == Interference::fail_one && run.file_calls == interference.n) ||
                    (interference.kind == Interference::fail_from && run.file_calls >= interference.n);
        }
        if (fails) { // no such system call: it does nothing
            registers.orig_rax = ~0ULL;
            ptrace(PTRACE_SETREGS, child, nullptr, &registers);
        }
        if (!to_next_stop(child, run)) return; // at the return
        if (fails) {
            registers = registers_of(child);
            registers.rax = static_cast<unsigned long long>(-EIO);
            ptrace(PTRACE_SETREGS, child, nullptr, &registers);
        }
    }
}

#endif

} // namespace

ChildRun run_child([[maybe_unused]] const Interference& interference, const std::function<int()>& work)
{
    ChildRun run;
#if defined(__x86_64__)
    const pid_t child = fork();
    if (child == 0) {
        if (ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0) _exit(100);
        raise(SIGSTOP);
        _exit(work());
    }
    int status = 0;
    waitpid(child, &status, 0);
    if (!WIFSTOPPED(status)) return run;
    run.traced = true;
    follow(child, interference, run);
#else
    static_cast<void>(work);
#endif
    return run;
}

} // namespace kq::test
