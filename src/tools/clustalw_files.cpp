// format: what ClustalW is called with, and the NEXUS alignment that it writes.
#include "tools/clustalw_files.h"

#include "core/store.h"
#include "screen/strings.h"
#include "taxonomy/text_file.h"

#include <algorithm>
#include <charconv>

namespace kq {

std::vector<std::string> clustalw_arguments(const std::string& program, const std::string& input)
{
    return {program, "-OUTPUT=NEXUS", "-infile=" + input};
}

namespace {

constexpr std::string_view row_prefix = "lcl|";

constexpr bool is_letter(char c)
{
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

constexpr bool is_blank(char c)
{
    return c == ' ' || c == '\t';
}

// What may stand between the columns of a row without being one.
constexpr bool is_passed_over(char c)
{
    return is_blank(c) || (c >= '0' && c <= '9');
}

constexpr bool is_column(char c)
{
    return is_letter(c) || c == '-';
}

// Without a branch, so that it is done in wide vectors.
bool only_columns(std::string_view text)
{
    int others = 0;
    for (const char c : text)
        others += !is_column(c);
    return others == 0;
}

constexpr bool equal_letter(char a, char b)
{
    return a == b || (is_letter(a) && (a ^ b) == ('a' ^ 'A'));
}

bool begins_with(std::string_view text, std::string_view word) // in any case
{
    return text.size() >= word.size() && std::ranges::equal(text.substr(0, word.size()), word, equal_letter);
}

// Takes a number without sign off the front of a text; -1 when there is none.
int take_number(std::string_view& text)
{
    int number = -1;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc{} || number < 0) return -1;
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    return number;
}

class NexusReader {
public:
    NexusReader(std::string_view text, NexusAlignment& rows)
        : whole_(text)
        , text_(text)
        , rows_(rows)
    {
    }

    ResultProblem read()
    {
        if (read_head() && find_matrix() && read_rows()) look_for_the_missing();
        return std::move(problem_);
    }

private:
    // All that return a bool: false with the problem noted.
    bool read_head();
    bool find_matrix();
    bool read_rows();
    bool read_row(std::string_view line);
    bool add_columns(std::size_t row, std::string_view line, std::string_view text);
    bool look_for_the_missing();

    bool refuse(std::string what, int species = -1)
    {
        problem_ = {std::move(what), species};
        return false;
    }
    bool refuse_line(std::string_view line, const char* what)
    {
        const auto* const begin = whole_.data();
        return refuse(text_format("line %td %s", std::count(begin, line.data(), '\n') + 1, what));
    }
    bool take_word(std::string_view word)
    {
        text_.remove_prefix(std::min(text_.find_first_not_of(" \t\r\n"), text_.size()));
        if (!begins_with(text_, word)) return false;
        text_.remove_prefix(word.size());
        return true;
    }

    std::string_view whole_, text_; // all, and what is not read yet
    NexusAlignment& rows_;
    ResultProblem problem_;
    std::size_t row_count_ = 0;        // as announced
    std::size_t lines_ = 0;            // of rows, so far
    std::vector<int> slots_;           // of a species: its place among the rows, -1 = none yet
    std::vector<std::size_t> blocks_;  // of a row: the last block that had it
    std::vector<std::size_t> columns_; // of a row: how many it has so far
};

bool NexusReader::read_head()
{
    if (text_.find_first_not_of(" \t\r\n") == std::string_view::npos) return refuse("it is empty");
    for (const auto word : {"#NEXUS", "BEGIN", "DATA;", "dimensions", "ntax="})
        if (!take_word(word)) return refuse("it does not begin as a NEXUS alignment does");
    const int row_count = take_number(text_);
    const int length = take_word("nchar=") ? take_number(text_) : -1;
    if (row_count <= 0 || length <= 0 || !take_word(";"))
        return refuse("it does not say how many rows and columns it has");
    row_count_ = static_cast<std::size_t>(row_count);
    rows_.length = static_cast<std::size_t>(length);
    // Before memory is asked for: so many columns have to come.
    if (row_count_ > text_.size() / rows_.length)
        return refuse(
            text_format("it has less than the %d rows of %d columns that it announces", row_count, length));
    rows_.species.clear();
    rows_.text.assign(row_count_ * rows_.length, '-');
    blocks_.assign(row_count_, 0);
    columns_.assign(row_count_, 0);
    slots_.assign(max_species, -1);
    return true;
}

bool NexusReader::find_matrix()
{
    while (!text_.empty())
        if (begins_with(take_line(text_), "matrix")) return true;
    return refuse("it has no matrix");
}

bool NexusReader::read_rows()
{
    while (!text_.empty()) {
        const std::string_view line = take_line(text_);
        if (line.starts_with(';')) return true;
        if (line.find_first_not_of(" \t") == std::string_view::npos) continue;
        if (!read_row(line)) return false;
    }
    return true;
}

// One row of a block; as many lines as there are rows are a block.
bool NexusReader::read_row(std::string_view line)
{
    std::string_view text = line;
    if (!text.starts_with(row_prefix)) return refuse_line(line, "is not the row of a species");
    text.remove_prefix(row_prefix.size());
    const int species = take_number(text);
    if (species < 0 || species >= max_species || text.empty() || !is_blank(text.front()))
        return refuse_line(line, "is not the row of a species");

    int& slot = slots_[static_cast<std::size_t>(species)];
    if (slot < 0) {
        if (rows_.species.size() == row_count_)
            return refuse(text_format("it has more than the %zu rows that it announces", row_count_));
        slot = static_cast<int>(rows_.species.size());
        rows_.species.push_back(species);
    }
    const auto row = static_cast<std::size_t>(slot);
    const std::size_t block = 1 + lines_++ / row_count_;
    if (blocks_[row] == block) return refuse("comes twice", species);
    blocks_[row] = block;
    return add_columns(row, line, text);
}

bool NexusReader::add_columns(std::size_t row, std::string_view line, std::string_view text)
{
    text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
    const std::size_t room = rows_.length - columns_[row];
    char* const begin = &rows_.text[row * rows_.length + columns_[row]];
    char* to = begin;
    if (text.size() <= room && only_columns(text)) {
        to = std::ranges::copy(text, to).out;
    } else {
        for (const char c : text) {
            if (is_passed_over(c)) continue;
            if (!is_column(c)) return refuse_line(line, "has a character that is no residue");
            if (to == begin + room)
                return refuse(text_format("is longer than the %zu columns announced", rows_.length),
                              rows_.species[row]);
            *to++ = c;
        }
    }
    columns_[row] += static_cast<std::size_t>(to - begin);
    return true;
}

bool NexusReader::look_for_the_missing()
{
    if (rows_.species.size() < row_count_)
        return refuse(text_format("it has %zu rows and announces %zu", rows_.species.size(), row_count_));
    for (std::size_t row = 0; row < row_count_; row++)
        if (columns_[row] < rows_.length)
            return refuse(text_format("has %zu of the %zu columns announced", columns_[row], rows_.length),
                          rows_.species[row]);
    return true;
}

} // namespace

ResultProblem read_nexus(std::string_view text, NexusAlignment& rows)
{
    return NexusReader(text, rows).read();
}

} // namespace kq
