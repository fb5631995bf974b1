// kernel: rows cut down to the columns that are shown.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kq {

// The columns of an alignment whose flag is 0 (shown), kept as runs of neighbours, so that a row is cut down
// by a few copies.
class ColumnSubset {
public:
    // One flag a column: 0 = in the subset, anything else = out of it.
    explicit ColumnSubset(std::span<const unsigned char> hidden);

    struct Run {
        int first, last; // columns [first, last), 0-based
    };
    int count() const { return count_; }
    std::span<const Run> runs() const { return runs_; }
    // Appends the row's characters of these columns, count() of them: blanks beyond the row's end.
    void append(std::string& text, std::string_view row) const;

private:
    std::vector<Run> runs_;
    int count_ = 0;
};

// A row of a derived file: the name as it is written, and the whole text in alignment columns.
struct OutputRow {
    std::string name;
    std::string_view text;
};

} // namespace kq
