// kernel: small text helpers shared by the screens.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kq {

char* strupr(char* text); // in place, ASCII only, as are the next two
char* strlwr(char* text);
char* strrev(char* text);
int stricmp(const char* a, const char* b); // -1, 0 or 1, case-insensitive
int pstrcmp(const void* a, const void* b); // strcmp of two fixed-width names, for sorting tables

// Copies at most field.size() - 1 characters and a NUL.
void copy_field(std::span<char> field, std::string_view text);
// printf into a string; "%*s" and friends as in printf.
[[gnu::format(printf, 1, 2)]] std::string text_format(const char* format, ...);
// The text cut or padded with blanks to exactly `width` characters.
std::string padded(std::string_view text, int width);
// The text in rows of at most `width` characters (at least 1), broken at blanks where there are any, else
// anywhere; one empty row for an empty text.
std::vector<std::string> wrap_text(std::string_view text, int width);

} // namespace kq
