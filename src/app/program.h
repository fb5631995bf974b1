// screen: start-up and the outer loop over alignments.
#pragma once

namespace kq {

// The whole program; it ends only through end_program. Tests call it with the memory driver.
[[noreturn]] void run_program();

} // namespace kq
