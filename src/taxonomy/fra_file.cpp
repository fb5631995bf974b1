// format: reads .fra files.
#include "taxonomy/fra_file.h"

#include "screen/strings.h"
#include "taxonomy/frame.h"
#include "taxonomy/text_file.h"

#include <algorithm>

namespace kq {

namespace {

constexpr std::string_view malformed_label = "remplir_noeud pc2 est NULL";

// Reads the frame line from left to right. Open inner nodes wait on a stack of their own, so that no nesting
// can exhaust the program's.
class FrameLine {
public:
    explicit FrameLine(std::string_view line)
        : line_(line)
    {
    }

    std::vector<FraNode> nodes;
    std::string error;

    void creer_arbre()
    {
        if (next() != '(') return fail(malformed_label);
        while (error.empty() && !complete_) {
            if (next() == '(') {
                open_.push_back(-1);
                position_++;
            } else if (const int leaf = remplir_noeud(); leaf >= 0) {
                close_subtree(leaf);
            }
        }
    }

private:
    char next() const { return position_ < line_.size() ? line_[position_] : '\0'; }

    void fail(std::string_view message) { error = message; }

    // Steps over the character that has to stand here.
    bool step_over(char expected)
    {
        if (next() != expected) {
            fail(malformed_label);
            return false;
        }
        position_++;
        return true;
    }

    // A subtree has been read. The second child of an inner node brings that node's label with it, and so on
    // upwards.
    void close_subtree(int subtree)
    {
        while (!open_.empty()) {
            int& child1 = open_.back();
            if (child1 < 0) {
                child1 = subtree;
                step_over(',');
                return;
            }
            if (!step_over(')')) return;
            const int inner = remplir_noeud();
            if (inner < 0) return;
            nodes[static_cast<std::size_t>(inner)].child1 = child1;
            nodes[static_cast<std::size_t>(inner)].child2 = subtree;
            open_.pop_back();
            subtree = inner;
        }
        complete_ = true;
    }

    // Reads a label into a new node and leaves the position on the character that ends it; the node's index,
    // or -1.
    int remplir_noeud()
    {
        std::size_t end = line_.find_first_of(",)", position_);
        if (end == std::string_view::npos) end = line_.find(';', position_);
        if (end == std::string_view::npos) return fail(malformed_label), -1;
        const std::string_view label = line_.substr(position_, end - position_);

        const std::size_t first = label.find(':');
        const std::size_t second = first == std::string_view::npos ? first : label.find(':', first + 1);
        if (second == std::string_view::npos) return fail(malformed_label), -1;
        const std::size_t third = label.find(':', second + 1);

        FraNode node;
        node.name = label.substr(0, std::min<std::size_t>(first, group_name_size - 1));
        node.x = leading_number(label.substr(first + 1), max_coordinate);
        node.y = leading_number(label.substr(second + 1), max_coordinate);
        if (third != std::string_view::npos)
            node.sub = leading_number(label.substr(third + 1), max_coordinate);
        nodes.push_back(std::move(node));
        if (nodes.size() > max_groups) return fail(too_many_groups(static_cast<int>(nodes.size()))), -1;
        position_ = end;
        return static_cast<int>(nodes.size()) - 1;
    }

    std::string_view line_;
    std::size_t position_ = 0;
    std::vector<int> open_; // for each open inner node its first child, -1 while that is being read
    bool complete_ = false;
};

struct Lines {
    std::string_view version, frame;
    bool frame_ended = false; // a newline stands after the frame, within the limit
};

Lines split_lines(std::string_view text)
{
    Lines lines;
    const std::size_t first = text.find('\n');
    lines.version = without_carriage_return(text.substr(0, first));
    if (first == std::string_view::npos) return lines;
    const std::string_view rest = text.substr(first + 1);
    const std::size_t second = rest.find('\n');
    lines.frame = rest.substr(0, second);
    lines.frame_ended = second <= max_frame_line; // npos, no newline, is beyond any limit
    return lines;
}

} // namespace

FraFile parse_fra(std::string_view text)
{
    const Lines lines = split_lines(text);
    FraFile file;
    file.version = lines.version;
    if (!lines.frame_ended) {
        file.error = text_format("The systematic frame line is too long (MAXIMUM = %d)", max_frame_line);
        return file;
    }
    FrameLine line(lines.frame);
    line.creer_arbre();
    file.error = line.error;
    if (file.error.empty()) file.nodes = std::move(line.nodes);
    return file;
}

FraHeader parse_fra_header(std::string_view text)
{
    const Lines lines = split_lines(text);
    const auto commas = std::count(lines.frame.begin(), lines.frame.end(), ',');
    return {std::string(lines.version), static_cast<int>(commas) + 1};
}

} // namespace kq
