// kernel: checks sequence text against the accepted alphabet.
//
// A byte is looked up by its two halves: each high half that occurs in the alphabet owns one bit, and the
// table of the low halves says in which of them the character exists. Sixteen bytes are looked up at once
// where the processor can shuffle bytes.
#include "core/alphabet.h"

#include "core/residues.h"

#include <array>
#include <bit>
#include <cstdint>

#if defined(__x86_64__)
#include <immintrin.h>
#endif

namespace kq {

namespace {

struct HalfTables {
    std::array<std::uint8_t, 16> low{}, high{};

    constexpr bool accepts(char c) const
    {
        const auto byte = static_cast<unsigned char>(c);
        return low[byte & 15] & high[byte >> 4];
    }
};

constexpr HalfTables make_tables(std::string_view alphabet)
{
    HalfTables tables;
    int rows = 0;
    const auto accept = [&](char c) {
        const auto byte = static_cast<unsigned char>(c);
        auto& row = tables.high[byte >> 4];
        if (!row) row = static_cast<std::uint8_t>(1 << rows++);
        tables.low[byte & 15] = static_cast<std::uint8_t>(tables.low[byte & 15] | row);
    };
    for (const char c : alphabet) {
        accept(c);
        if (c >= 'A' && c <= 'Z') accept(static_cast<char>(c - 'A' + 'a'));
    }
    return tables;
}

constexpr std::array<HalfTables, 2> tables_of_type = {make_tables(alphabet_arn), make_tables(alphabet_prot)};

static_assert(tables_of_type[0].accepts('a') && tables_of_type[0].accepts('?') &&
              !tables_of_type[0].accepts('E') && !tables_of_type[0].accepts('\0'));
static_assert(tables_of_type[1].accepts('y') && !tables_of_type[1].accepts('B') &&
              !tables_of_type[1].accepts('\xe9') && !tables_of_type[1].accepts('\r'));

std::size_t scan_plain(std::string_view text, std::size_t start, const HalfTables& tables) noexcept
{
    for (std::size_t i = start; i < text.size(); i++)
        if (!tables.accepts(text[i])) return i;
    return text.size();
}

#if defined(__x86_64__)
[[gnu::target("ssse3")]] std::size_t scan_shuffled(std::string_view text, const HalfTables& tables) noexcept
{
    const __m128i low = _mm_loadu_si128(reinterpret_cast<const __m128i*>(tables.low.data()));
    const __m128i high = _mm_loadu_si128(reinterpret_cast<const __m128i*>(tables.high.data()));
    const __m128i half = _mm_set1_epi8(15);
    std::size_t i = 0;
    for (; i + 16 <= text.size(); i += 16) {
        const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(text.data() + i));
        const __m128i rows = _mm_shuffle_epi8(high, _mm_and_si128(_mm_srli_epi16(bytes, 4), half));
        const __m128i found = _mm_and_si128(_mm_shuffle_epi8(low, _mm_and_si128(bytes, half)), rows);
        const int outside = _mm_movemask_epi8(_mm_cmpeq_epi8(found, _mm_setzero_si128()));
        if (outside) return i + static_cast<std::size_t>(std::countr_zero(static_cast<unsigned>(outside)));
    }
    return scan_plain(text, i, tables);
}
#endif

} // namespace

std::size_t first_outside_alphabet(std::string_view text, int type) noexcept
{
    const HalfTables& tables = tables_of_type[type ? 1 : 0];
#if defined(__x86_64__)
    static const bool can_shuffle = __builtin_cpu_supports("ssse3") != 0;
    if (can_shuffle) return scan_shuffled(text, tables);
#endif
    return scan_plain(text, 0, tables);
}

} // namespace kq
