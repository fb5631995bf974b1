// kernel: consensus marks from the counts of one column.
#include "core/consensus_kernel.h"

#include <algorithm>

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

} // namespace kq
