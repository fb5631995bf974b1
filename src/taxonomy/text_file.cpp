// platform: whole text files in memory.
#include "taxonomy/text_file.h"

#include "core/large_pages.h"
#include "screen/files.h"

#include <sys/stat.h>

#include <array>
#include <cerrno>
#include <filesystem>

namespace kq {

namespace {

// In bytes; 0 where that is not known.
std::size_t size_of(const File& file)
{
    struct stat status {};
    return fstat(fileno(file.get()), &status) == 0 ? static_cast<std::size_t>(status.st_size) : 0;
}

std::string rest_of(const File& file)
{
    std::string text;
    text.reserve(size_of(file));
    prefer_large_pages(text.data(), text.capacity());
    std::array<char, 65536> piece;
    while (const std::size_t n = std::fread(piece.data(), 1, piece.size(), file.get()))
        text.append(piece.data(), n);
    return text;
}

} // namespace

std::string read_text_file(const std::string& path)
{
    return rest_of(ffopen(path, "r"));
}

std::string read_whole_file(const std::string& path, std::string& text)
{
    text.clear();
    // A missing file gets its reason from fopen; a pipe would hold the program for ever.
    std::error_code error;
    if (std::filesystem::exists(path, error) && !std::filesystem::is_regular_file(path, error))
        return "Problem in opening file " + path + " (it is not a regular file)";
    const File file{std::fopen(path.c_str(), "rbe")};
    if (!file) return file_problem("Problem in opening file", path, errno);
    // What is read whole is much shorter; rubbish may not be.
    constexpr std::size_t longest = std::size_t{1} << 30;
    if (size_of(file) > longest) return file_problem("Problem in reading file", path, EFBIG);
    text = rest_of(file);
    return std::ferror(file.get()) ? file_problem("Problem in reading file", path, errno) : "";
}

std::string_view without_carriage_return(std::string_view line)
{
    if (line.ends_with('\r')) line.remove_suffix(1);
    return line;
}

std::string_view take_line(std::string_view& text, bool* ended)
{
    const std::size_t newline = text.find('\n');
    const std::string_view line = text.substr(0, newline);
    const bool has_newline = newline != std::string_view::npos;
    text.remove_prefix(has_newline ? newline + 1 : text.size());
    if (ended) *ended = has_newline;
    return without_carriage_return(line);
}

int leading_number(std::string_view text, int limit)
{
    const std::size_t start = text.find_first_not_of(" \t\r\n\v\f");
    if (start == std::string_view::npos) return 0;
    text.remove_prefix(start);
    const bool negative = text.starts_with('-');
    if (negative || text.starts_with('+')) text.remove_prefix(1);
    long long number = 0;
    for (const char c : text) {
        if (c < '0' || c > '9') break;
        number = number * 10 + (c - '0');
        if (number > limit) number = limit;
    }
    return static_cast<int>(negative ? -number : number);
}

} // namespace kq
