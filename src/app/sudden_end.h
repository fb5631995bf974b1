// platform: ends that nobody asked for at the keyboard: signals and a lost connection to the window.
#pragma once

namespace kq {

// From now on SIGHUP, SIGINT, SIGTERM and the loss of the connection write a rescue copy of unsaved work,
// name it on standard error, and end the program: with 128 + the signal's number, or 1 for a lost connection.
void rescue_on_sudden_end();

} // namespace kq
