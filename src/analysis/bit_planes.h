// kernel: what holds at the positions of a sequence, one bit a position.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace kq {

inline constexpr int positions_of_block = 512, words_of_plane = positions_of_block / 64;

// 512 positions: bit p % 64 of word p / 64.
struct alignas(64) Plane {
    std::array<std::uint64_t, words_of_plane> words;

    std::uint64_t& operator[](std::size_t word) { return words[word]; }
    const std::uint64_t& operator[](std::size_t word) const { return words[word]; }
};

// The blocks of planes that a sequence takes.
inline std::size_t blocks_of_positions(int positions)
{
    return static_cast<std::size_t>((positions + positions_of_block - 1) / positions_of_block);
}

// What characters set, one bit for each of at most eight planes.
using BitsOfCharacter = std::array<std::uint8_t, 256>;

// The bits of at most eight characters, a byte for each.
inline std::uint64_t bits_of(std::span<const char> eight, const BitsOfCharacter& bits)
{
    std::uint64_t bytes = 0;
    for (std::size_t k = 0; k < eight.size(); k++)
        bytes |= std::uint64_t{bits[static_cast<unsigned char>(eight[k])]} << 8 * k;
    return bytes;
}

// The lowest bits of eight bytes, the first byte's as bit 0.
inline std::uint64_t lowest_bits(std::uint64_t bytes)
{
    return (bytes & 0x0101010101010101U) * 0x0102040810204080U >> 56;
}

} // namespace kq
