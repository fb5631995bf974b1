// kernel: how many rows have a gap in each column.
#include "analysis/gap_count.h"

#include "core/vector_clones.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace kq {

namespace {

// Columns are counted in blocks whose counters stay in the cache while all rows pass, and rows in batches
// that fit into counters of a byte: one vector holds many of these.
constexpr std::size_t block_columns = 16384, batch_rows = 255;
using ByteCounters = std::array<std::uint8_t, block_columns>;

// Written with vectors: the compiler makes a table of the six characters, which it looks up one by one.
using Bytes [[gnu::vector_size(32)]] = std::uint8_t;

KQ_VECTOR_CLONES void add_row(const char* text, std::size_t count, std::uint8_t* counters)
{
    std::size_t c = 0;
    for (; c + sizeof(Bytes) <= count; c += sizeof(Bytes)) {
        Bytes x, counted;
        std::memcpy(&x, text + c, sizeof x);
        std::memcpy(&counted, counters + c, sizeof counted);
        // A comparison that holds has all bits set, which adds 1 when it is subtracted.
        counted -= reinterpret_cast<Bytes>((x == ' ') | (x == '*') | (x == '?') | (x == '$') | (x == '-') |
                                           (x == '\0'));
        std::memcpy(counters + c, &counted, sizeof counted);
    }
    for (; c < count; c++)
        counters[c] = static_cast<std::uint8_t>(counters[c] + counts_as_gap(text[c]));
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
