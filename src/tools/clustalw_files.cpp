// format: what ClustalW is called with, and the NEXUS alignment that it writes.
#include "tools/clustalw_files.h"

#include "core/large_pages.h"
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
    return static_cast<unsigned char>((c & ~32) - 'A') < 26;
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
    return is_letter(c) | (c == '-');
}

// Without a branch and in bytes, so that it is done in wide vectors.
bool only_columns(std::string_view text)
{
    unsigned char others = 0;
    for (const char c : text)
        others |= static_cast<unsigned char>(!is_column(c));
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

std::string_view without_blanks_before(std::string_view text)
{
    std::size_t blanks = 0;
    while (blanks < text.size() && is_blank(text[blanks]))
        blanks++;
    return text.substr(blanks);
}

struct Number {
    int value;          // -1 = there is none
    std::size_t digits; // that it takes up
};

// The number without sign at the front of a text.
Number leading_number(std::string_view text)
{
    Number number{-1, 0};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number.value);
    if (error != std::errc{} || number.value < 0) return {-1, 0};
    number.digits = static_cast<std::size_t>(end - text.data());
    return number;
}

class NexusReader {
public:
    NexusReader(const NextLine& next_line, NexusAlignment& alignment)
        : source_(next_line)
        , alignment_(alignment)
    {
    }

    ResultProblem read()
    {
        std::string head;
        const bool has_matrix = collect_head(head);
        if (read_head(head) && (has_matrix || refuse("it has no matrix")) && read_rows())
            look_for_the_missing();
        return std::move(problem_);
    }

private:
    // What is known of a row while it is read.
    struct Progress {
        std::size_t columns = 0; // read so far
        std::size_t block = 0;   // the last one that had it, from 1
    };

    bool collect_head(std::string& head);
    // False with the problem noted, as the next three.
    bool read_head(std::string_view head);
    bool read_rows();
    bool read_row(std::string_view line);
    bool add_columns(std::size_t row, std::string_view text);
    void look_for_the_missing();

    bool next_line(std::string_view& line)
    {
        line_number_++;
        return source_(line);
    }
    bool refuse(std::string what, int species = -1)
    {
        problem_ = {std::move(what), species};
        return false;
    }
    bool refuse_line(const char* what) { return refuse(text_format("line %zu %s", line_number_, what)); }

    const NextLine& source_;
    NexusAlignment& alignment_;
    ResultProblem problem_;
    std::size_t line_number_ = 0, rows_read_ = 0;
    std::size_t row_count_ = 0;  // as announced
    std::vector<int> row_of_;    // of a species, -1 = none yet
    std::vector<Progress> rows_; // as many as announced
};

// The lines before the matrix; false when there is none.
bool NexusReader::collect_head(std::string& head)
{
    constexpr std::size_t longest = 100000; // of a text that may still be a head
    std::string_view line;
    while (head.size() < longest && next_line(line)) {
        if (begins_with(line, "matrix")) return true;
        (head += line) += '\n';
    }
    return false;
}

bool NexusReader::read_head(std::string_view head)
{
    const auto take_word = [&head](std::string_view word) {
        head.remove_prefix(std::min(head.find_first_not_of(" \t\n"), head.size()));
        if (!begins_with(head, word)) return false;
        head.remove_prefix(word.size());
        return true;
    };
    if (head.find_first_not_of(" \t\n") == std::string_view::npos) return refuse("it is empty");
    for (const auto word : {"#NEXUS", "BEGIN", "DATA;", "dimensions", "ntax="})
        if (!take_word(word)) return refuse("it does not begin as a NEXUS alignment does");
    const auto take_number = [&head] {
        const auto [value, digits] = leading_number(head);
        head.remove_prefix(digits);
        return value;
    };
    const int row_count = take_number();
    const int length = take_word("nchar=") ? take_number() : -1;
    if (row_count <= 0 || length <= 0 || !take_word(";"))
        return refuse("it does not say how many rows and columns it has");
    if (row_count > max_species || length > seq_capacity / row_count)
        return refuse(
            text_format("%d rows of %d columns are more than an alignment can have", row_count, length));
    row_count_ = static_cast<std::size_t>(row_count);
    alignment_.length = static_cast<std::size_t>(length);
    alignment_.species.clear();
    // Not touched before there are columns for it, whatever the head says.
    alignment_.text = std::make_unique_for_overwrite<char[]>(row_count_ * alignment_.length);
    prefer_large_pages(alignment_.text.get(), row_count_ * alignment_.length);
    rows_.assign(row_count_, {});
    row_of_.assign(max_species, -1);
    return true;
}

bool NexusReader::read_rows()
{
    std::string_view line;
    while (next_line(line) && !line.starts_with(';')) {
        if (!without_blanks_before(line).empty() && !read_row(line)) return false;
    }
    return true;
}

// One row of a block; as many lines as there are rows are a block.
bool NexusReader::read_row(std::string_view line)
{
    if (!line.starts_with(row_prefix)) return refuse_line("is not the row of a species");
    const auto [species, digits] = leading_number(line.substr(row_prefix.size()));
    line.remove_prefix(row_prefix.size() + digits);
    if (species < 0 || species >= max_species || line.empty() || !is_blank(line.front()))
        return refuse_line("is not the row of a species");

    int& row = row_of_[static_cast<std::size_t>(species)];
    if (row < 0) {
        row = static_cast<int>(alignment_.species.size());
        if (alignment_.species.size() == row_count_)
            return refuse(text_format("it has more than the %zu rows that it announces", row_count_));
        alignment_.species.push_back(species);
    }
    const auto index = static_cast<std::size_t>(row);
    const std::size_t block = 1 + rows_read_++ / row_count_;
    if (rows_[index].block == block) return refuse("comes again before all rows have come", species);
    rows_[index].block = block;
    return add_columns(index, without_blanks_before(line));
}

bool NexusReader::add_columns(std::size_t row, std::string_view text)
{
    std::size_t& columns = rows_[row].columns;
    char* to = alignment_.text.get() + row * alignment_.length + columns;
    const std::size_t room = alignment_.length - columns;
    if (text.size() <= room && only_columns(text)) {
        std::ranges::copy(text, to);
        columns += text.size();
        return true;
    }
    for (const char c : text) {
        if (is_passed_over(c)) continue;
        if (!is_column(c)) return refuse_line("has a character that is no residue");
        if (columns == alignment_.length)
            return refuse(text_format("is longer than the %zu columns announced", alignment_.length),
                          alignment_.species[row]);
        *to++ = c;
        columns++;
    }
    return true;
}

void NexusReader::look_for_the_missing()
{
    if (alignment_.species.size() < row_count_) {
        refuse(text_format("it has %zu rows and announces %zu", alignment_.species.size(), row_count_));
        return;
    }
    for (std::size_t row = 0; row < row_count_; row++)
        if (rows_[row].columns < alignment_.length)
            refuse(text_format("has %zu of the %zu columns announced", rows_[row].columns, alignment_.length),
                   alignment_.species[row]);
}

} // namespace

NextLine lines_of(LineReader& file)
{
    return [&file](std::string_view& line) {
        const auto status = file.next(line, LineReader::max_limit);
        line = without_carriage_return(line);
        return status != LineReader::Status::end && status != LineReader::Status::failed;
    };
}

ResultProblem read_nexus(const NextLine& next_line, NexusAlignment& alignment)
{
    return NexusReader(next_line, alignment).read();
}

} // namespace kq
