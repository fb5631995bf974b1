// platform: how much memory this process can still have.
#pragma once

#include <cstdint>
#include <string>

namespace kq {

// Bytes that can be had without swapping and without being stopped: the least of what the machine has
// available, of what the control groups of the process leave, and of its own limits (ulimit). What is unknown
// does not count; when nothing is known, the largest number.
std::uint64_t available_memory();
// Tests show another machine: where its /proc and /sys are looked for ("" = the real ones).
void set_system_root(std::string root);

} // namespace kq
