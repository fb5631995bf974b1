// kernel: the numbers of a distance matrix as text.
#include "analysis/matrix_text.h"

#include "screen/strings.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>

namespace kq {

namespace {

constexpr std::size_t field = 10;
// What storing whole words may write beyond the last field.
constexpr std::size_t slack = 4;

using Word = std::array<char, 4>;

constexpr Word digits_of(int number, char leading)
{
    Word word = {leading, leading, '0', '0'};
    for (std::size_t i = 3; i-- > 0; number /= 10)
        word[i] = number > 0 || i == 2 ? static_cast<char>('0' + number % 10) : leading;
    return word;
}

// 0 to 999, right-aligned in three characters, the point behind them; and as three digits.
constexpr auto before_point = [] {
    std::array<Word, 1000> words{};
    for (int number = 0; number < 1000; number++) {
        auto& word = words[static_cast<std::size_t>(number)];
        word = digits_of(number, ' ');
        word[3] = '.';
    }
    return words;
}();
constexpr auto three_digits = [] {
    std::array<Word, 1000> words{};
    for (int number = 0; number < 1000; number++)
        words[static_cast<std::size_t>(number)] = digits_of(number, '0');
    return words;
}();

// A nonnegative value below 2^52, rounded to an integer, half to even: so far up, doubles are the integers.
std::uint64_t rounded(double value)
{
    return std::bit_cast<std::uint64_t>(value + 0x1p52) & ((std::uint64_t{1} << 52) - 1);
}

// A value of a magnitude whose whole part has at most three digits, but for what rounds to 1000.
template <std::uint32_t decimals>
char* write_decimal(char* out, float value)
{
    constexpr std::uint32_t unit = decimals == 6 ? 1000000 : decimals == 5 ? 100000 : 10000;
    constexpr std::size_t blanks = 6 - decimals;
    const auto scaled = static_cast<std::uint32_t>(rounded(static_cast<double>(value) * unit));
    const std::uint32_t whole = scaled / unit, fraction = scaled % unit;
    if (whole == 1000) {
        std::memcpy(out, " 1000.0000", field);
        return out + field;
    }
    std::memset(out, ' ', blanks);
    std::memcpy(out + blanks, before_point[whole].data(), 4);
    std::memcpy(out + blanks + 4, three_digits[fraction / 1000].data() + blanks, 4 - blanks);
    std::memcpy(out + 7, three_digits[fraction % 1000].data(), 4);
    return out + field;
}

// Above 1000, at most ten digits.
char* write_whole(char* out, float value)
{
    std::memset(out, ' ', field);
    std::uint64_t rest = rounded(static_cast<double>(value));
    for (char* digit = out + field; rest > 0; rest /= 10)
        *--digit = static_cast<char>('0' + rest % 10);
    return out + field;
}

// Negative, infinite, undefined and very large values.
std::string printed(float value)
{
    if (value > 1000) return text_format("%10.0f", static_cast<double>(value));
    return text_format("%10.6f", static_cast<double>(value));
}

constexpr std::uint32_t bits_of(float value)
{
    return std::bit_cast<std::uint32_t>(value);
}

} // namespace

void append_numbers(std::string& text, std::span<const float> values)
{
    const std::size_t before = text.size();
    text.resize(before + values.size() * field + slack);
    char* out = text.data() + before;
    for (const float value : values) {
        // Nonnegative floats are ordered as their bits are; the bits of all others are larger.
        const std::uint32_t bits = bits_of(value);
        if (bits <= bits_of(10))
            out = write_decimal<6>(out, value);
        else if (bits <= bits_of(100))
            out = write_decimal<5>(out, value);
        else if (bits <= bits_of(1000))
            out = write_decimal<4>(out, value);
        else if (bits < bits_of(1e10F))
            out = write_whole(out, value);
        else {
            const std::string number = printed(value);
            const auto at = static_cast<std::size_t>(out - text.data());
            text.resize(text.size() + number.size() - field);
            out = std::copy(number.begin(), number.end(), text.data() + at);
        }
    }
    text.resize(text.size() - slack);
}

std::string short_number(double value)
{
    const char* const format = value < 1 ? "%5.3f" : value < 10 ? "%5.2f" : value < 100 ? "%5.1f" : "%5.0f";
    return text_format(format, value);
}

} // namespace kq
