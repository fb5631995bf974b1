// kernel: consensus marks from the counts of residue codes.
#include "core/consensus_kernel.h"

#include "core/vector_clones.h"

#include <algorithm>
#include <array>
#include <type_traits>

namespace kq {

char consensus_mark(std::span<const std::uint32_t> counts, std::uint32_t N)
{
    const std::uint32_t m = *std::max_element(counts.begin(), counts.end());
    const std::uint32_t K = N - counts.back();
    if (K == 0) return ' ';
    if (m == K) return '*';
    const std::uint32_t q = 10 * m / K;
    if (q == 2 || q == 3) return '.';
    return q >= 4 && q <= 9 ? '*' : ' ';
}

ColumnConsensus column_consensus(std::span<const std::uint32_t> counts, std::uint32_t blanks, std::uint32_t n,
                                 const char* letters)
{
    if (n == 0) return {' ', 0};
    const std::uint32_t gaps = counts.front(), unknown = counts.back();
    const auto level = [](std::uint32_t conservation) {
        return static_cast<unsigned char>(std::min(9U, 10U - std::min(10U, conservation)));
    };
    if (blanks + gaps == n) return {blanks <= gaps ? '*' : ' ', level(10)};
    if (unknown + gaps == n) return {'*', level(10 * gaps / (gaps + unknown - blanks))};

    std::size_t first = 0, second = 0;
    std::uint32_t first_count = 0, second_count = 0;
    for (std::size_t code = 0; code < counts.size(); code++)
        if (counts[code] > first_count) {
            second = first;
            second_count = first_count;
            first = code;
            first_count = counts[code];
        }
    if (10 * unknown / n > 8) return {letters[second], level(1)};
    if (letters[first] != ' ') return {letters[first], level(10 * first_count / (n - unknown))};
    return {letters[second], level(10 * second_count / (n - unknown))};
}

// ---- many columns at a time
//
// Each step runs over a block of columns, so that it becomes vector instructions; the counters of a class lie
// side by side. The functions with an overload for each width of counter are what is compiled twice.

namespace {

constexpr int block_columns = 256;
template <typename Number>
using Block = std::array<Number, block_columns>;

template <typename Counter>
struct BlockCounts {
    CounterGrid<const Counter> counters;
    int codes;
    int n; // rows
    int first, width;

    const Counter* row(int k) const { return counters.row(k) + first; }
    // The unknown class, blanks included.
    [[gnu::always_inline]] void add_unknown(Block<Counter>& unknown) const
    {
        const Counter *others = row(codes - 1), *blanks = row(codes);
        for (int j = 0; j < width; j++)
            unknown[static_cast<std::size_t>(j)] = static_cast<Counter>(others[j] + blanks[j]);
    }
};

template <typename Counter>
[[gnu::always_inline]] inline void raise_maximum(Block<Counter>& most, const Counter* counts, int width)
{
    for (std::size_t j = 0; j < static_cast<std::size_t>(width); j++) {
        const Counter old = most[j], count = counts[j];
        most[j] = count > old ? count : old;
    }
}

// q = 10 m / K of consensus_mark is never computed: q >= 2 means 5 m >= K, q >= 4 means 5 m >= 2 K, and
// q > 9 with m != K means m > K.
template <typename Counter>
[[gnu::always_inline]] inline void mark_any_block(BlockCounts<Counter> block, char* marks)
{
    Block<Counter> most{}, unknown;
    for (int code = 0; code < block.codes - 1; code++)
        raise_maximum(most, block.row(code), block.width);
    block.add_unknown(unknown);
    raise_maximum(most, unknown.data(), block.width);
    for (std::size_t j = 0; j < static_cast<std::size_t>(block.width); j++) {
        const int m = static_cast<int>(most[j]), K = block.n - static_cast<int>(unknown[j]);
        const char mark = 5 * m >= 2 * K ? '*' : 5 * m >= K ? '.' : ' ';
        const bool unmarked = (K == 0) | (m > K);
        marks[j] = unmarked ? ' ' : mark;
    }
}

// a where the mask is all ones, b where it is zero: an expression that becomes no branch.
template <typename Counter>
[[gnu::always_inline]] inline Counter blend(Counter mask, Counter a, Counter b)
{
    return static_cast<Counter>(b ^ ((a ^ b) & mask));
}

template <typename Counter>
[[gnu::always_inline]] inline void scan_code(Block<Counter>& leader, Block<Counter>& leading, int code,
                                             const Counter* counts, int width)
{
    for (std::size_t j = 0; j < static_cast<std::size_t>(width); j++) {
        const Counter count = counts[j], most = leading[j];
        const auto leads = static_cast<Counter>(count > most ? ~Counter{0} : Counter{0});
        leader[j] = blend(leads, static_cast<Counter>(code), leader[j]);
        leading[j] = blend(leads, count, most);
    }
}

// 10 - v for v = 10 c / d, 0 <= c <= d: how many of the tenths of d lie above c.
[[gnu::always_inline]] inline int tenths_missing(int c, int d)
{
    int missing = 0;
    for (int tenth = 1; tenth <= 10; tenth++)
        missing += 10 * c < tenth * d;
    return missing;
}

// The cases of column_consensus as selections. The unknown class is the last code of the scan: where it
// leads, the runner-up is what led before it, and where it dominates, it leads. So the leader of the other
// codes is the character in every case that has residues.
template <typename Counter>
[[gnu::always_inline]] inline void decide_any_block(BlockCounts<Counter> block, Block<Counter>& picked,
                                                    unsigned char* levels)
{
    Block<Counter> leader{}, leading{}, unknown;
    const int n = block.n, unknown_code = block.codes - 1;
    for (int code = 0; code < unknown_code; code++)
        scan_code(leader, leading, code, block.row(code), block.width);
    block.add_unknown(unknown);
    const Counter *gap_counts = block.row(0), *blank_counts = block.row(block.codes);
    for (std::size_t j = 0; j < static_cast<std::size_t>(block.width); j++) {
        const int S = static_cast<int>(blank_counts[j]), G = static_cast<int>(gap_counts[j]);
        const int X = static_cast<int>(unknown[j]);
        const int residue = static_cast<int>(leader[j]), count = static_cast<int>(leading[j]);
        const bool only_gaps = S + G == n, no_residue = X + G == n;
        const bool dominated = (10 * X >= 9 * n) & !no_residue, mostly_blank = only_gaps & (S > G);
        const int missing = tenths_missing(no_residue ? G : count, no_residue ? G + X - S : n - X);
        const int by_count = dominated ? 9 : missing;
        const int level = only_gaps ? 0 : by_count;
        const int gap_or_blank = mostly_blank ? unknown_code : 0;
        picked[j] = static_cast<Counter>(no_residue ? gap_or_blank : residue);
        levels[j] = static_cast<unsigned char>(level < 9 ? level : 9);
    }
}

KQ_VECTOR_CLONES void mark_block(BlockCounts<std::uint16_t> block, char* marks)
{
    mark_any_block(block, marks);
}

KQ_VECTOR_CLONES void mark_block(BlockCounts<std::uint32_t> block, char* marks)
{
    mark_any_block(block, marks);
}

KQ_VECTOR_CLONES void decide_block(BlockCounts<std::uint16_t> block, Block<std::uint16_t>& picked,
                                   unsigned char* levels)
{
    decide_any_block(block, picked, levels);
}

KQ_VECTOR_CLONES void decide_block(BlockCounts<std::uint32_t> block, Block<std::uint32_t>& picked,
                                   unsigned char* levels)
{
    decide_any_block(block, picked, levels);
}

// Calls f(block) for each block of the columns.
template <typename F>
void for_blocks(const CountTable& counts, ColumnRange columns, F f)
{
    counts.read([&](auto counters) {
        using Counter = std::remove_cvref_t<decltype(*counters.first)>;
        for (int first = columns.first; first < columns.last; first += block_columns)
            f(BlockCounts<Counter>{counters, counts.codes(), counts.members(), first,
                                   std::min(block_columns, columns.last - first)});
    });
}

} // namespace

void mark_columns(const CountTable& counts, ColumnRange columns, char* marks)
{
    for_blocks(counts, columns, [marks](const auto& block) { mark_block(block, marks + block.first); });
}

void consensus_columns(const CountTable& counts, ColumnRange columns, const char* letters, char* characters,
                       unsigned char* levels)
{
    if (columns.empty()) return;
    if (counts.members() == 0) {
        std::fill(characters + columns.first, characters + columns.last, ' ');
        std::fill(levels + columns.first, levels + columns.last, static_cast<unsigned char>(0));
        return;
    }
    for_blocks(counts, columns, [=]<typename Counter>(const BlockCounts<Counter>& block) {
        Block<Counter> picked;
        decide_block(block, picked, levels + block.first);
        for (int j = 0; j < block.width; j++)
            characters[block.first + j] = letters[picked[static_cast<std::size_t>(j)]];
    });
}

} // namespace kq
