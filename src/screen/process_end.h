// platform: the one way out of the program, fatal ends included.
#pragma once

#include <string>
#include <string_view>

namespace kq {

// Ends the process with this status. Tests replace what it does with set_end_handler; the handler must not
// return (it throws).
[[noreturn]] void end_program(int status);
void set_end_handler(void (*handler)(int status)); // null = exit()

// Writes to standard error, or into `*sink` after redirect_errors (tests; null = standard error again).
void write_error(std::string_view text);
void redirect_errors(std::string* sink);

// Clears the screen, writes "The program has encountered the following FATAL ERROR :" and the message to
// standard error, lets the rescue function save unsaved work and names its file, and ends with status 1.
[[noreturn]] void erreur_fatale(std::string_view message);
// `rescue` writes a copy of unsaved work and returns its path, or "" when there is nothing to save or no
// place for it. It is called at most once.
void set_rescue(std::string (*rescue)());

} // namespace kq
