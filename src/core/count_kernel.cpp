// kernel: counting residue classes in rows of text.
//
// Many rows are counted in tiles of at most 255 rows: a tile is copied so that the 64 columns of a lane lie
// one row after the other, then each character is compared with a whole lane at a time into counters of one
// byte, which a tile can't overflow. Few rows or columns are counted character by character.
#include "core/count_kernel.h"

#include "core/vector_clones.h"

#include <algorithm>
#include <cstring>

namespace kq {

namespace {

constexpr ResidueClasses make_classes(const std::array<std::int8_t, 256>& code_of, int codes)
{
    ResidueClasses classes{codes, codes, codes + 1, codes + 2, {}};
    for (std::size_t c = 0; c < 256; c++)
        classes.class_of[c] = static_cast<std::uint8_t>(code_of[c] == code_none ? classes.none : code_of[c]);
    classes.class_of[' '] = static_cast<std::uint8_t>(classes.blank);
    return classes;
}

std::size_t class_of(const ResidueClasses& classes, char c)
{
    return classes.class_of[static_cast<unsigned char>(c)];
}

constexpr int lane_columns = 64;
constexpr int tile_lanes = 8;
constexpr int tile_columns = lane_columns * tile_lanes;
constexpr int tile_rows = 255;

using Lane = std::array<std::uint8_t, lane_columns>;

struct Tile {
    int rows = 0;
    std::array<std::array<Lane, tile_rows>, tile_lanes> lanes;
};

// Copies the columns [first, first + tile_columns) of the rows.
void fill_tile(Tile& tile, std::span<const CountedText> rows, int first)
{
    std::array<char, tile_columns> padded;
    tile.rows = static_cast<int>(rows.size());
    for (std::size_t r = 0; r < rows.size(); r++) {
        const int present = std::clamp(rows[r].length - first, 0, tile_columns);
        const char* source = padded.data();
        if (present == tile_columns) {
            source = rows[r].text + first;
        } else {
            padded.fill(' ');
            if (present > 0)
                std::memcpy(padded.data(), rows[r].text + first, static_cast<std::size_t>(present));
        }
        for (std::size_t l = 0; l < tile_lanes; l++)
            std::memcpy(tile.lanes[l][r].data(), source + l * lane_columns, lane_columns);
    }
}

// Adds to `sums` how many of the rows hold c.
KQ_VECTOR_CLONES
void count_character(const Lane* rows, int count, std::uint8_t c, Lane& sums)
{
    Lane found = sums;
    for (int r = 0; r < count; r++)
        for (std::size_t j = 0; j < lane_columns; j++)
            found[j] = static_cast<std::uint8_t>(found[j] + (rows[r][j] == c));
    sums = found;
}

template <typename Counter>
void add_lane(Counter* counters, const Lane& sums, int columns, Sign sign)
{
    for (int j = 0; j < columns; j++)
        counters[j] = static_cast<Counter>(counters[j] + static_cast<std::uint32_t>(sign) *
                                                             sums[static_cast<std::size_t>(j)]);
}

// Counts of every class in a lane; the characters without a code are what is left.
void count_lane(const Lane* rows, int count, const ResidueClasses& classes,
                std::array<Lane, most_classes>& sums)
{
    auto& rest = sums[static_cast<std::size_t>(classes.none)];
    sums.fill({});
    for (std::size_t c = 0; c < 256; c++)
        if (classes.class_of[c] != classes.none)
            count_character(rows, count, static_cast<std::uint8_t>(c), sums[classes.class_of[c]]);
    for (std::size_t j = 0; j < lane_columns; j++) {
        int left = count;
        for (std::size_t k = 0; k < static_cast<std::size_t>(classes.none); k++)
            left -= sums[k][j];
        rest[j] = static_cast<std::uint8_t>(left);
    }
}

template <typename Counter>
void count_tile(CounterGrid<Counter> counters, const ResidueClasses& classes, const Tile& tile, int first,
                int columns, Sign sign)
{
    std::array<Lane, most_classes> sums;
    for (int start = 0; start < columns; start += lane_columns) {
        const auto& lane = tile.lanes[static_cast<std::size_t>(start / lane_columns)];
        count_lane(lane.data(), tile.rows, classes, sums);
        for (int k = 0; k < classes.count; k++)
            add_lane(counters.row(k) + first + start, sums[static_cast<std::size_t>(k)],
                     std::min(lane_columns, columns - start), sign);
    }
}

template <typename Counter>
void count_characters(CounterGrid<Counter> counters, const ResidueClasses& classes,
                      std::span<const CountedText> rows, int first, int last, Sign sign)
{
    for (const auto& row : rows)
        for (int p = first; p < last; p++) {
            const char c = p < row.length ? row.text[p] : ' ';
            auto& counter =
                counters.first[class_of(classes, c) * counters.stride + static_cast<std::size_t>(p)];
            counter = static_cast<Counter>(counter + static_cast<std::uint32_t>(sign));
        }
}

} // namespace

const ResidueClasses& residue_classes(int type)
{
    static const std::array<ResidueClasses, 2> classes = {make_classes(arn_codes, codes_arn),
                                                          make_classes(prot_codes, codes_prot)};
    return classes[type ? 1 : 0];
}

template <typename Counter>
void count_rows(CounterGrid<Counter> counters, const ResidueClasses& classes,
                std::span<const CountedText> rows, int first, int last, Sign sign)
{
    if (rows.size() < 8 || last - first < lane_columns / 4) {
        count_characters(counters, classes, rows, first, last, sign);
        return;
    }
    // Threads take different columns: each counter has one writer.
#pragma omp parallel for schedule(static) if (rows.size() > 1000)
    for (int start = first; start < last; start += tile_columns) {
        Tile tile;
        for (std::size_t r = 0; r < rows.size(); r += tile_rows) {
            fill_tile(tile, rows.subspan(r, std::min<std::size_t>(tile_rows, rows.size() - r)), start);
            count_tile(counters, classes, tile, start, std::min(tile_columns, last - start), sign);
        }
    }
}

template <typename Counter>
void count_change(CounterGrid<Counter> counters, const ResidueClasses& classes, int first,
                  std::string_view before, std::string_view after, int times)
{
    constexpr std::size_t step = 8; // runs of equal characters are passed over in words
    for (std::size_t j = 0; j < before.size(); j += step) {
        const std::size_t end = std::min(j + step, before.size());
        if (end - j == step && std::memcmp(before.data() + j, after.data() + j, step) == 0) continue;
        for (std::size_t i = j; i < end; i++) {
            Counter* column = counters.first + static_cast<std::size_t>(first) + i;
            auto& left = column[class_of(classes, before[i]) * counters.stride];
            left = static_cast<Counter>(left - static_cast<std::uint32_t>(times));
            auto& entered = column[class_of(classes, after[i]) * counters.stride];
            entered = static_cast<Counter>(entered + static_cast<std::uint32_t>(times));
        }
    }
}

template void count_rows(CounterGrid<std::uint16_t>, const ResidueClasses&, std::span<const CountedText>, int,
                         int, Sign);
template void count_rows(CounterGrid<std::uint32_t>, const ResidueClasses&, std::span<const CountedText>, int,
                         int, Sign);
template void count_change(CounterGrid<std::uint16_t>, const ResidueClasses&, int, std::string_view,
                           std::string_view, int);
template void count_change(CounterGrid<std::uint32_t>, const ResidueClasses&, int, std::string_view,
                           std::string_view, int);

} // namespace kq
