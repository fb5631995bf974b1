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
    const auto length = static_cast<int>(row.size());
    for (const Run run : runs_) {
        const int last = std::clamp(length, run.first, run.last); // of the row's own characters
        if (last > run.first)
            text.append(row, static_cast<std::size_t>(run.first), static_cast<std::size_t>(last - run.first));
        text.append(static_cast<std::size_t>(run.last - last), ' ');
    }
}

} // namespace kq
