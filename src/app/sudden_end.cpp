// platform: ends that nobody asked for at the keyboard: signals and a lost connection to the window.
//
// A signal handler may not touch the alignment, which may just be in the middle of an edit. It cuts the
// connection to the window instead: the program comes upon that where it next draws or waits for a key, and
// there the alignment is whole.
#include "app/sudden_end.h"

#include "core/ali_writer.h"
#include "raster/grx.h"
#include "screen/process_end.h"

#include <signal.h>

namespace kq {

namespace {

volatile sig_atomic_t received = 0; // the signal that has cut the connection

void end_after_rescue()
{
    if (!received) write_error("kq: the connection to the window is lost\n");
    const auto rescued = rescue_ali();
    if (!rescued.empty()) write_error("The unsaved changes have been written to " + rescued + "\n");
    end_program(received ? 128 + received : 1);
}

// Writing to a server that has just gone is an error of that call, not the end of the program. A handler, not
// SIG_IGN: programs that are started from here get the default back.
extern "C" void kq_on_broken_pipe(int) {}

extern "C" void kq_on_signal(int number)
{
    received = number;
    if (GrCutConnection()) return;
    // Without a window nobody works on anything.
    signal(number, SIG_DFL);
    raise(number);
}

} // namespace

void rescue_on_sudden_end()
{
    GrSetConnectionLost(end_after_rescue);
    struct sigaction action {};
    action.sa_handler = kq_on_signal;
    action.sa_flags = SA_RESTART;
    sigemptyset(&action.sa_mask);
    for (const int number : {SIGHUP, SIGINT, SIGTERM}) {
        struct sigaction before {};
        // What is ignored from outside (nohup) stays ignored.
        if (sigaction(number, nullptr, &before) == 0 && before.sa_handler == SIG_IGN) continue;
        sigaction(number, &action, nullptr);
    }
    action.sa_handler = kq_on_broken_pipe;
    sigaction(SIGPIPE, &action, nullptr);
}

} // namespace kq
