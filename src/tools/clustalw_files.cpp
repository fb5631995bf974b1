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

// Takes the digits of a number off the front of a text; -1, and nothing is taken, when there is none.
int take_number(std::string_view& text)
{
    int number = -1;
    if (text.starts_with('-')) return -1;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc{}) return -1;
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    return number;
}

class NexusReader {
public:
    NexusReader(std::string_view text, NexusAlignment& alignment)
        : text_(text)
        , left_(text)
        , alignment_(alignment)
    {
    }

    ResultProblem read()
    {
        const std::string_view head = take_head();
        const bool has_matrix = head.size() < text_.size();
        if (read_head(head) && (has_matrix || refuse("it has no matrix")) && find_rows()) join_rows();
        return std::move(problem_);
    }

private:
    std::string_view take_head();
    // False with the problem noted, as the next two.
    bool read_head(std::string_view head);
    bool find_rows();
    bool find_row(std::string_view line);
    void expect_lines_of(std::ptrdiff_t length);
    void join_rows();
    bool join_row(std::size_t row);
    void look_for_the_fault(std::size_t row);

    bool refuse(std::string what, int species = -1)
    {
        problem_ = {std::move(what), species};
        return false;
    }
    // `at` is in the line.
    bool refuse_line(const char* at, const char* what)
    {
        return refuse(text_format("line %td %s", 1 + std::count(text_.data(), at, '\n'), what));
    }

    const std::string_view text_;
    std::string_view left_; // what has not been read of it
    NexusAlignment& alignment_;
    ResultProblem problem_;
    std::size_t row_count_ = 0, lines_found_ = 0; // rows as announced; their lines
    std::vector<int> row_of_;                     // of a species, -1 = none yet
    // What stands in the lines of the matrix behind the species, [block * row_count_ + row]; no data = not
    // found yet.
    std::vector<std::string_view> pieces_;
};

// The lines before that of the word "matrix"; all of the text when there is none.
std::string_view NexusReader::take_head()
{
    constexpr std::size_t longest = 100000; // of a text that may still be a head
    for (std::size_t length = 0; length < longest && !left_.empty(); length = text_.size() - left_.size())
        if (begins_with(take_line(left_), "matrix")) return text_.substr(0, length);
    return text_;
}

bool NexusReader::read_head(std::string_view head)
{
    constexpr std::string_view between = " \t\r\n";
    const auto take_word = [&](std::string_view word) {
        head.remove_prefix(std::min(head.find_first_not_of(between), head.size()));
        if (!begins_with(head, word)) return false;
        head.remove_prefix(word.size());
        return true;
    };
    if (head.find_first_not_of(between) == std::string_view::npos) return refuse("it is empty");
    for (const auto word : {"#NEXUS", "BEGIN", "DATA;", "dimensions", "ntax="})
        if (!take_word(word)) return refuse("it does not begin as a NEXUS alignment does");
    const int row_count = take_number(head);
    const int length = take_word("nchar=") ? take_number(head) : -1;
    if (row_count <= 0 || length <= 0 || !take_word(";"))
        return refuse("it does not say how many rows and columns it has");
    if (row_count > max_species || length > seq_capacity / row_count)
        return refuse(
            text_format("%d rows of %d columns are more than an alignment can have", row_count, length));
    row_count_ = static_cast<std::size_t>(row_count);
    alignment_.length = static_cast<std::size_t>(length);
    alignment_.species.clear();
    row_of_.assign(max_species, -1);
    return true;
}

bool NexusReader::find_rows()
{
    while (!left_.empty() && !left_.starts_with(';')) {
        const std::string_view line = take_line(left_);
        if (!without_blanks_before(line).empty() && !find_row(line)) return false;
    }
    const std::size_t found = alignment_.species.size();
    return found == row_count_ || refuse(text_format("it has %zu rows and announces %zu", found, row_count_));
}

// One row of a block; as many lines as there are rows are a block.
bool NexusReader::find_row(std::string_view line)
{
    const char* const begin = line.data();
    if (!line.starts_with(row_prefix)) return refuse_line(begin, "is not the row of a species");
    line.remove_prefix(row_prefix.size());
    const int species = take_number(line);
    if (species < 0 || species >= max_species || line.empty() || !is_blank(line.front()))
        return refuse_line(begin, "is not the row of a species");

    int& row = row_of_[static_cast<std::size_t>(species)];
    if (row < 0) {
        row = static_cast<int>(alignment_.species.size());
        if (alignment_.species.size() == row_count_)
            return refuse(text_format("it has more than the %zu rows that it announces", row_count_));
        alignment_.species.push_back(species);
    }
    if (pieces_.empty()) expect_lines_of(line.data() + line.size() - begin);
    if (lines_found_++ % row_count_ == 0) pieces_.resize(pieces_.size() + row_count_);
    std::string_view& piece = pieces_[pieces_.size() - row_count_ + static_cast<std::size_t>(row)];
    if (piece.data()) return refuse("comes again before all rows have come", species);
    piece = without_blanks_before(line);
    return true;
}

// Most files have lines of one length: with room for their pieces none of these is moved.
void NexusReader::expect_lines_of(std::ptrdiff_t length)
{
    pieces_.reserve(text_.size() / static_cast<std::size_t>(length) + row_count_);
    prefer_large_pages(pieces_.data(), pieces_.capacity() * sizeof(std::string_view));
}

void NexusReader::join_rows()
{
    alignment_.text = std::make_unique_for_overwrite<char[]>(row_count_ * alignment_.length);
    prefer_large_pages(alignment_.text.get(), row_count_ * alignment_.length);
    std::vector<char> joined(row_count_);
#pragma omp parallel for schedule(static) if (row_count_ > 100)
    for (std::size_t row = 0; row < row_count_; row++)
        joined[row] = join_row(row);
    if (const auto faulty = std::ranges::find(joined, 0); faulty != joined.end())
        look_for_the_fault(static_cast<std::size_t>(faulty - joined.begin()));
}

// False when its pieces are not the columns announced.
bool NexusReader::join_row(std::size_t row)
{
    char* to = alignment_.text.get() + row * alignment_.length;
    char* const end = to + alignment_.length;
    for (std::size_t i = row; i < pieces_.size(); i += row_count_) {
        const std::string_view piece = pieces_[i];
        if (std::ssize(piece) <= end - to && only_columns(piece)) {
            to = std::ranges::copy(piece, to).out;
            continue;
        }
        for (const char c : piece) {
            if (is_passed_over(c)) continue;
            if (to == end || !is_column(c)) return false;
            *to++ = c;
        }
    }
    return to == end;
}

void NexusReader::look_for_the_fault(std::size_t row)
{
    std::size_t columns = 0;
    for (std::size_t i = row; i < pieces_.size(); i += row_count_)
        for (const char& c : pieces_[i]) {
            if (is_passed_over(c)) continue;
            if (!is_column(c)) {
                refuse_line(&c, "has a character that is no residue");
                return;
            }
            columns++;
        }
    refuse(columns > alignment_.length
               ? text_format("is longer than the %zu columns announced", alignment_.length)
               : text_format("has %zu of the %zu columns announced", columns, alignment_.length),
           alignment_.species[row]);
}

} // namespace

ResultProblem read_nexus(std::string_view text, NexusAlignment& alignment)
{
    return NexusReader(text, alignment).read();
}

} // namespace kq
