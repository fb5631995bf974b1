// kernel: small text helpers shared by the screens.
#include "screen/strings.h"

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <cstring>

namespace kq {

namespace {

char upper(char c)
{
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

char lower(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

} // namespace

char* strupr(char* text)
{
    for (char* c = text; *c; c++)
        *c = upper(*c);
    return text;
}

char* strlwr(char* text)
{
    for (char* c = text; *c; c++)
        *c = lower(*c);
    return text;
}

char* strrev(char* text)
{
    std::reverse(text, text + std::strlen(text));
    return text;
}

int stricmp(const char* a, const char* b)
{
    for (;; a++, b++) {
        const auto left = static_cast<unsigned char>(lower(*a));
        const auto right = static_cast<unsigned char>(lower(*b));
        if (left != right) return left < right ? -1 : 1;
        if (left == 0) return 0;
    }
}

int pstrcmp(const void* a, const void* b)
{
    return std::strcmp(static_cast<const char*>(a), static_cast<const char*>(b));
}

void copy_field(std::span<char> field, std::string_view text)
{
    if (field.empty()) return;
    const std::size_t count = std::min(text.size(), field.size() - 1);
    std::copy_n(text.begin(), count, field.begin());
    field[count] = '\0';
}

std::string text_format(const char* format, ...)
{
    va_list arguments, again;
    va_start(arguments, format);
    va_copy(again, arguments);
    const int length = std::vsnprintf(nullptr, 0, format, arguments);
    va_end(arguments);
    std::string text(static_cast<std::size_t>(std::max(length, 0)), '\0');
    if (length > 0) std::vsnprintf(text.data(), text.size() + 1, format, again);
    va_end(again);
    return text;
}

std::string padded(std::string_view text, int width)
{
    std::string result(text);
    result.resize(static_cast<std::size_t>(std::max(width, 0)), ' ');
    return result;
}

std::vector<std::string> wrap_text(std::string_view text, int width)
{
    const auto room = static_cast<std::size_t>(std::max(width, 1));
    std::vector<std::string> rows;
    while (text.size() > room) {
        std::size_t cut = text.rfind(' ', room);
        const bool at_blank = cut != std::string_view::npos && cut > 0;
        if (!at_blank) cut = room;
        rows.emplace_back(text.substr(0, cut));
        text.remove_prefix(cut + (at_blank ? 1 : 0));
    }
    rows.emplace_back(text);
    return rows;
}

} // namespace kq
