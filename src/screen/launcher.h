// screen: leaves the editor for one of the package's companion programs.
#pragma once

#include <span>
#include <string_view>

namespace kq {

// The companion programs, by the names of their executables in dir_ZOLTEXE.
extern const std::span<const std::string_view> companion_programs;

// Offers these programs in a box from `line` on; the one chosen takes the place of this one. Returns only
// when nothing was started: ESCAPE, or after a warning that says why. Unsaved changes are not offered for
// saving.
void choice_autre_exe(int line, std::span<const std::string_view> programs);

} // namespace kq
