// kernel: how large sets of positions are, for pairs of sequences that are stored as bit planes.
//
// What is counted is a class `Sets`; the loops over the pairs, one for each kind of instructions, count any.
//
//   struct Sets {
//       using Counts = ...; // what is known of a pair
//       using Block = ...;  // what a sequence is stored in; each 512 positions take stride() of them
//       static constexpr std::size_t number = ...; // of the sets
//       std::size_t stride() const;
//       // The sets at the positions of a block that the vector holds, from 64 * word on. Always inline.
//       template <class Vector>
//       void select(const Block* a, const Block* b, std::size_t word, Vector* set) const;
//       Counts counts(const std::int32_t* size) const; // from the sizes of the sets
//   };
#pragma once

#include "analysis/bit_planes.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <vector>

#if defined(__x86_64__)
#include <immintrin.h>
#define KQ_AVX2 [[gnu::target("avx2")]]
#define KQ_AVX512 [[gnu::target("avx512f,avx512vpopcntdq")]]
#endif

namespace kq {

// As much of the plane as the vector holds, from the word on.
template <class Vector>
[[gnu::always_inline]] inline void load(Vector& vector, const Plane& plane, std::size_t word)
{
    std::memcpy(&vector, plane.words.data() + word, sizeof vector);
}

// The instructions that the counting uses. The counts are the same.
enum class Instructions { baseline, avx2, avx512 };
// Those that this processor has, the fastest last.
std::vector<Instructions> usable_instructions();

namespace plane_counts {

using Bits128 = std::uint64_t __attribute__((vector_size(16)));
using Bits256 = std::uint64_t __attribute__((vector_size(32)));
using Bits512 = std::uint64_t __attribute__((vector_size(64)));

// ---- the baseline processor: 128 bits

// Bits are counted in bytes, where this many blocks have room.
template <class Vector>
constexpr std::size_t blocks_in_bytes = 255 / (positions_of_block / sizeof(Vector));

inline Bits128 count_in_bytes(Bits128 x)
{
    const Bits128 pairs = Bits128{} + 0x5555555555555555, fours = Bits128{} + 0x3333333333333333,
                  bytes = Bits128{} + 0x0f0f0f0f0f0f0f0f;
    x -= x >> 1 & pairs;
    x = (x & fours) + (x >> 2 & fours);
    return (x + (x >> 4)) & bytes;
}

inline std::int32_t sum_of_bytes(Bits128 bytes)
{
    const Bits128 even = Bits128{} + 0x00ff00ff00ff00ff;
    const Bits128 sums = (bytes & even) + (bytes >> 8 & even);
    return static_cast<std::int32_t>((sums[0] + sums[1]) * 0x0001000100010001 >> 48);
}

template <class Sets>
void count_baseline(const Sets& sets, const typename Sets::Block* a, const typename Sets::Block* b,
                    std::size_t blocks, std::span<typename Sets::Counts> counts)
{
    for (auto& result : counts) {
        std::int32_t size[Sets::number]{};
        for (std::size_t first = 0; first < blocks; first += blocks_in_bytes<Bits128>) {
            Bits128 bytes[Sets::number]{};
            const std::size_t end = std::min(first + blocks_in_bytes<Bits128>, blocks);
            for (std::size_t k = first; k < end; k++)
                for (std::size_t word = 0; word < words_of_plane; word += 2) {
                    Bits128 set[Sets::number];
                    sets.select(a + k * sets.stride(), b + k * sets.stride(), word, set);
                    for (std::size_t s = 0; s < Sets::number; s++)
                        bytes[s] += count_in_bytes(set[s]);
                }
            for (std::size_t s = 0; s < Sets::number; s++)
                size[s] += sum_of_bytes(bytes[s]);
        }
        result = sets.counts(size);
        b += blocks * sets.stride();
    }
}

#if defined(__x86_64__)

// ---- AVX2

KQ_AVX2 inline Bits256 count_in_bytes(Bits256 x)
{
    const __m256i bits_of_nibble = _mm256_setr_epi8(0, 1, 1, 2, 1, 2, 2, 3, 1, 2, 2, 3, 2, 3, 3, 4, //
                                                    0, 1, 1, 2, 1, 2, 2, 3, 1, 2, 2, 3, 2, 3, 3, 4);
    const __m256i nibble = _mm256_set1_epi8(15), low = _mm256_and_si256(reinterpret_cast<__m256i>(x), nibble),
                  high = _mm256_and_si256(reinterpret_cast<__m256i>(x >> 4), nibble);
    return reinterpret_cast<Bits256>(
        _mm256_add_epi8(_mm256_shuffle_epi8(bits_of_nibble, low), _mm256_shuffle_epi8(bits_of_nibble, high)));
}

KQ_AVX2 inline Bits256 sums_of_bytes(Bits256 bytes)
{
    return reinterpret_cast<Bits256>(
        _mm256_sad_epu8(reinterpret_cast<__m256i>(bytes), _mm256_setzero_si256()));
}

// Lanes 0 and 2 of the result add up to p, lanes 1 and 3 to q.
KQ_AVX2 inline Bits256 pair_lanes(Bits256 p, Bits256 q)
{
    return __builtin_shufflevector(p, q, 0, 4, 2, 6) + __builtin_shufflevector(p, q, 1, 5, 3, 7);
}

// The sums of p, q, r and s from their paired lanes.
KQ_AVX2 inline void add_lanes(Bits256 pq, Bits256 rs, std::int32_t* sums)
{
    const Bits256 all =
        __builtin_shufflevector(pq, rs, 0, 1, 4, 5) + __builtin_shufflevector(pq, rs, 2, 3, 6, 7);
    for (int lane = 0; lane < 4; lane++)
        sums[lane] = static_cast<std::int32_t>(all[lane]);
}

// Sums are added up four at a time.
template <class Sets>
constexpr std::size_t in_fours = (Sets::number + 3) / 4 * 4;

template <class Sets>
KQ_AVX2 void count_avx2(const Sets& sets, const typename Sets::Block* a, const typename Sets::Block* b,
                        std::size_t blocks, std::span<typename Sets::Counts> counts)
{
    for (auto& result : counts) {
        Bits256 sums[in_fours<Sets>]{};
        for (std::size_t first = 0; first < blocks; first += blocks_in_bytes<Bits256>) {
            Bits256 bytes[Sets::number]{};
            const std::size_t end = std::min(first + blocks_in_bytes<Bits256>, blocks);
            for (std::size_t k = first; k < end; k++)
                for (std::size_t word = 0; word < words_of_plane; word += 4) {
                    Bits256 set[Sets::number];
                    sets.select(a + k * sets.stride(), b + k * sets.stride(), word, set);
                    for (std::size_t s = 0; s < Sets::number; s++)
                        bytes[s] += count_in_bytes(set[s]);
                }
            for (std::size_t s = 0; s < Sets::number; s++)
                sums[s] += sums_of_bytes(bytes[s]);
        }
        std::int32_t size[in_fours<Sets>];
        for (std::size_t s = 0; s < in_fours<Sets>; s += 4)
            add_lanes(pair_lanes(sums[s], sums[s + 1]), pair_lanes(sums[s + 2], sums[s + 3]), size + s);
        result = sets.counts(size);
        b += blocks * sets.stride();
    }
}

// ---- AVX-512 with its population count

KQ_AVX512 inline Bits512 count_in_words(Bits512 x)
{
    return reinterpret_cast<Bits512>(_mm512_popcnt_epi64(reinterpret_cast<__m512i>(x)));
}

// As for 256 bits.
KQ_AVX512 inline Bits256 pair_lanes(Bits512 p, Bits512 q)
{
    const Bits512 pairs = __builtin_shufflevector(p, q, 0, 8, 2, 10, 4, 12, 6, 14) +
                          __builtin_shufflevector(p, q, 1, 9, 3, 11, 5, 13, 7, 15);
    return __builtin_shufflevector(pairs, pairs, 0, 1, 2, 3) +
           __builtin_shufflevector(pairs, pairs, 4, 5, 6, 7);
}

template <class Sets>
KQ_AVX512 void count_avx512(const Sets& sets, const typename Sets::Block* a, const typename Sets::Block* b,
                            std::size_t blocks, std::span<typename Sets::Counts> counts)
{
    for (auto& result : counts) {
        Bits512 sums[in_fours<Sets>]{};
        for (std::size_t k = 0; k < blocks; k++) {
            Bits512 set[Sets::number];
            sets.select(a + k * sets.stride(), b + k * sets.stride(), 0, set);
            for (std::size_t s = 0; s < Sets::number; s++)
                sums[s] += count_in_words(set[s]);
        }
        std::int32_t size[in_fours<Sets>];
        for (std::size_t s = 0; s < in_fours<Sets>; s += 4)
            add_lanes(pair_lanes(sums[s], sums[s + 1]), pair_lanes(sums[s + 2], sums[s + 3]), size + s);
        result = sets.counts(size);
        b += blocks * sets.stride();
    }
}

#endif

} // namespace plane_counts

// Counts the sequence `a` against the sequences that begin at `b` and follow one another.
template <class Sets>
void count_planes(const Sets& sets, const typename Sets::Block* a, const typename Sets::Block* b,
                  std::size_t blocks, std::span<typename Sets::Counts> counts, Instructions instructions)
{
    switch (instructions) {
#if defined(__x86_64__)
    case Instructions::avx512:
        return plane_counts::count_avx512(sets, a, b, blocks, counts);
    case Instructions::avx2:
        return plane_counts::count_avx2(sets, a, b, blocks, counts);
#endif
    default:
        return plane_counts::count_baseline(sets, a, b, blocks, counts);
    }
}

} // namespace kq
