// platform: starting other programs. No shell is involved: names and arguments arrive as they are.
#pragma once

#include <span>
#include <string>

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

} // namespace kq
