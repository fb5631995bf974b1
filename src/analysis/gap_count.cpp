// kernel: how many rows have a gap in each column.
#include "analysis/gap_count.h"

#include "core/vector_clones.h"

#include <algorithm>
#include <array>

namespace kq {

namespace {

// Columns are counted in blocks whose counters stay in the cache while all rows pass, and rows in batches
// that fit into counters of a byte: one vector holds many of these.
constexpr std::size_t block_columns = 4096, batch_rows = 255;
using ByteCounters = std::array<std::uint8_t, block_columns>;

KQ_VECTOR_CLONES void add_row(const char* text, std::size_t count, std::uint8_t* counters)
{
    for (std::size_t c = 0; c < count; c++) {
        const char x = text[c];
        counters[c] = static_cast<std::uint8_t>(
            counters[c] + ((x == ' ') | (x == '*') | (x == '?') | (x == '$') | (x == '-') | (x == '\0')));
    }
}

KQ_VECTOR_CLONES void add_batch(const std::uint8_t* counters, std::size_t count, std::uint32_t* gaps)
{
    for (std::size_t c = 0; c < count; c++)
        gaps[c] += counters[c];
}

// The columns from `first` on, as many as `gaps` has.
void count_block(std::span<const std::string_view> rows, std::size_t first, std::span<std::uint32_t> gaps)
{
    ByteCounters counters;
    while (!rows.empty()) {
        const auto batch = rows.first(std::min(rows.size(), batch_rows));
        counters.fill(0);
        for (const std::string_view row : batch) {
            const std::size_t length = row.size() <= first ? 0 : std::min(row.size() - first, gaps.size());
            add_row(length == 0 ? nullptr : row.data() + first, length, counters.data());
            for (std::size_t c = length; c < gaps.size(); c++)
                counters[c]++;
        }
        add_batch(counters.data(), gaps.size(), gaps.data());
        rows = rows.subspan(batch.size());
    }
}

} // namespace

std::vector<std::uint32_t> count_gaps(std::span<const std::string_view> rows, std::size_t columns)
{
    std::vector<std::uint32_t> gaps(columns, 0);
    for (std::size_t first = 0; first < columns; first += block_columns)
        count_block(rows, first, std::span(gaps).subspan(first, std::min(block_columns, columns - first)));
    return gaps;
}

} // namespace kq
