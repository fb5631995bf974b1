// format: species-list files (.lis).
#include "taxonomy/lis_file.h"

#include "core/line_reader.h"
#include "screen/strings.h"
#include "taxonomy/text_file.h"

#include <climits>

namespace kq {

namespace {

constexpr std::size_t longest_head_line = 999;
constexpr std::size_t longest_name = identifier_size - 1;

// Takes the next line without its line end; false at the end of the file and after a failure.
bool take(LineReader& reader, std::string_view& line, std::size_t longest)
{
    const auto status = reader.next(line, longest + 1); // room for a carriage return
    if (status == LineReader::Status::end || status == LineReader::Status::failed) return false;
    line = without_carriage_return(line).substr(0, longest);
    return true;
}

std::string take_head_line(LineReader& reader)
{
    std::string_view line;
    if (!take(reader, line, longest_head_line) || line.empty()) return "";
    return std::string(line.substr(1));
}

std::string remark_on(const LisFile& list, bool has_more)
{
    if (list.names.empty()) return "There are no species in this list";
    const int found = static_cast<int>(list.names.size());
    if (has_more) return text_format("Only the first %d lines of the list are read", found);
    if (found != list.count) return text_format("The list holds %d names", found);
    return "";
}

} // namespace

LisFile read_lis(const std::string& path)
{
    LineReader reader(path);
    LisFile list;
    list.created = take_head_line(reader);
    list.title = take_head_line(reader);
    std::string_view line;
    if (take(reader, line, longest_head_line)) list.count = leading_number(line, INT_MAX);
    bool has_more = false;
    while (!has_more && take(reader, line, longest_name)) {
        has_more = std::ssize(list.names) == max_listed_names;
        if (!has_more) list.names.emplace_back(line);
    }
    list.remark = remark_on(list, has_more);
    list.error = reader.error();
    return list;
}

std::string lis_text(std::string_view author, std::string_view date, std::string_view title,
                     std::span<const std::string_view> names)
{
    std::string text = "#Created by ";
    text.append(author).append(" on ").append(date).append("\n#").append(title).append("\n");
    text += std::to_string(names.size()) + "\n";
    for (const std::string_view name : names)
        text.append(name).append("\n");
    return text;
}

} // namespace kq
