// kernel: eight characters of a row at once, in one word.
#pragma once

#include <cstdint>
#include <cstring>

namespace kq {

inline std::uint64_t eight_at(const char* text)
{
    std::uint64_t characters;
    std::memcpy(&characters, text, sizeof characters);
    return characters;
}

constexpr std::uint64_t eight_times(char c)
{
    return 0x0101010101010101 * static_cast<unsigned char>(c);
}

constexpr char case_bit = 'a' ^ 'A';

// Whether each has the bit that letters have, and gaps, blanks, digits and "?" do not have.
constexpr bool may_be_letters(std::uint64_t characters)
{
    constexpr std::uint64_t bits = eight_times('@');
    return (characters & bits) == bits;
}

} // namespace kq
