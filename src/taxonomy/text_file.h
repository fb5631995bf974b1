// platform: whole text files in memory, and their lines and numbers.
#pragma once

#include <string>
#include <string_view>

namespace kq {

// The file's bytes. A file that cannot be opened is fatal (as everywhere).
std::string read_text_file(const std::string& path);
// The bytes of a regular file, 1 GB at most, into `text`; empty on success, else what failed.
std::string read_whole_file(const std::string& path, std::string& text);

std::string_view without_carriage_return(std::string_view line);

// Takes the next line, without its newline, off the front of `text`. `ended` tells whether it had one.
std::string_view take_line(std::string_view& text, bool* ended = nullptr);

// The decimal number that the text begins with (blanks and a sign may stand before it), 0 when there is none,
// brought within +-limit.
int leading_number(std::string_view text, int limit);

} // namespace kq
