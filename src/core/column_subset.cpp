// kernel: rows cut down to the columns that are shown.
#include "core/column_subset.h"

#include <algorithm>

namespace kq {

ColumnSubset::ColumnSubset(std::span<const unsigned char> hidden)
{
    const auto columns = static_cast<int>(hidden.size());
    for (int p = 0; p < columns; p++) {
        if (hidden[static_cast<std::size_t>(p)]) continue;
        if (runs_.empty() || runs_.back().last != p) runs_.push_back({p, p});
        runs_.back().last++;
        count_++;
    }
}

void ColumnSubset::append(std::string& text, std::string_view row) const
{
    const std::size_t before = text.size();
    text.resize(before + static_cast<std::size_t>(count_), ' ');
    char* out = text.data() + before;
    const auto length = static_cast<int>(row.size());
    for (const auto [first, last] : runs_) {
        const int end = std::clamp(length, first, last); // of the row's own characters
        for (int p = first; p < end; p++)
            out[p - first] = row[static_cast<std::size_t>(p)];
        out += last - first;
    }
}

} // namespace kq
