// kernel: what a pair of aligned nucleic acids has in common and how it differs, counted on bit planes.
//
// Contents: the sets of positions that are counted; one loop over pairs for each kind of instructions, which
// counts any sets; characters without a code; the choice of the loop.
#include "analysis/pair_counts.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>

#if defined(__x86_64__)
#include <immintrin.h>
#define KQ_AVX2 [[gnu::target("avx2")]]
#define KQ_AVX512 [[gnu::target("avx512f,avx512vpopcntdq")]]
#endif

namespace kq {

namespace {

// ---- the sets ---------------------------------------------------------------------------------------------

// As many positions of a sequence as the vector has bits.
template <class Vector>
struct Planes {
    Vector base, gap, purine, keto;
};

struct DifferenceSets {
    using Counts = PairCounts;
    static constexpr std::size_t number = 4;

    template <class Vector>
    [[gnu::always_inline]] static void select(const Planes<Vector>& a, const Planes<Vector>& b, Vector* set)
    {
        const Vector bases = a.base & b.base;
        const Vector transversions = bases & (a.purine ^ b.purine);
        set[0] = bases;
        set[1] = bases & (a.keto ^ b.keto) & ~transversions;
        set[2] = transversions;
        set[3] = (a.base & b.gap) | (a.gap & b.base);
    }
    [[gnu::always_inline]] static Counts counts(const std::int32_t* size)
    {
        return {.comparable = size[0] + size[3],
                .transitions = size[1],
                .transversions = size[2],
                .deletions = size[3],
                .others = 0};
    }
};

struct CompositionSets {
    using Counts = CompositionCounts;
    static constexpr std::size_t number = 9;

    template <class Vector>
    [[gnu::always_inline]] static void select(const Planes<Vector>& a, const Planes<Vector>& b, Vector* set)
    {
        const Vector bases = a.base & b.base, keto = bases & (a.keto ^ b.keto);
        set[0] = bases;
        set[1] = bases & (a.purine ^ b.purine);
        set[2] = a.purine & b.purine;
        set[3] = set[2] & keto;
        set[4] = keto & ~(a.purine | b.purine);
        set[5] = a.purine & a.keto & b.base;  // a's G
        set[6] = b.purine & b.keto & a.base;  // b's
        set[7] = a.keto & ~a.purine & b.base; // a's T
        set[8] = b.keto & ~b.purine & a.base; // b's
    }
    [[gnu::always_inline]] static Counts counts(const std::int32_t* size)
    {
        // A transversion has one purine.
        const std::int32_t purines = size[1] + 2 * size[2], G = size[5] + size[6], T = size[7] + size[8];
        return {.compared = size[0],
                .purine_transitions = size[3],
                .pyrimidine_transitions = size[4],
                .transversions = size[1],
                .A = purines - G,
                .C = 2 * size[0] - purines - T,
                .G = G,
                .T = T};
    }
};

using Blocks = std::span<const PlaneBlock>;

template <class Vector>
[[gnu::always_inline]] inline void load(Vector& vector, const PlaneBlock::Plane& plane, std::size_t word)
{
    std::memcpy(&vector, plane.data() + word, sizeof vector);
}
// The vector's positions from 64 * word on.
template <class Vector>
[[gnu::always_inline]] inline void load(Planes<Vector>& planes, const PlaneBlock& block, std::size_t word)
{
    load(planes.base, block.base, word);
    load(planes.gap, block.gap, word);
    load(planes.purine, block.purine, word);
    load(planes.keto, block.keto, word);
}

// ---- the baseline processor: 128 bits ---------------------------------------------------------------------

using Bits128 = std::uint64_t __attribute__((vector_size(16)));

// Bits are counted in bytes, where this many blocks have room.
template <class Vector>
constexpr std::size_t blocks_in_bytes = 255 / (positions_of_block / sizeof(Vector));

Bits128 count_in_bytes(Bits128 x)
{
    const Bits128 pairs = Bits128{} + 0x5555555555555555, fours = Bits128{} + 0x3333333333333333,
                  bytes = Bits128{} + 0x0f0f0f0f0f0f0f0f;
    x -= x >> 1 & pairs;
    x = (x & fours) + (x >> 2 & fours);
    return (x + (x >> 4)) & bytes;
}

std::int32_t sum_of_bytes(Bits128 bytes)
{
    const Bits128 even = Bits128{} + 0x00ff00ff00ff00ff;
    const Bits128 sums = (bytes & even) + (bytes >> 8 & even);
    return static_cast<std::int32_t>((sums[0] + sums[1]) * 0x0001000100010001 >> 48);
}

template <class Sets>
void count_baseline(Blocks a, const PlaneBlock* b, std::span<typename Sets::Counts> counts)
{
    for (auto& result : counts) {
        std::int32_t size[Sets::number]{};
        for (std::size_t first = 0; first < a.size(); first += blocks_in_bytes<Bits128>) {
            Bits128 bytes[Sets::number]{};
            for (std::size_t k = first; k < std::min(first + blocks_in_bytes<Bits128>, a.size()); k++)
                for (std::size_t word = 0; word < words_of_plane; word += 2) {
                    Planes<Bits128> planes_a, planes_b;
                    load(planes_a, a[k], word);
                    load(planes_b, b[k], word);
                    Bits128 set[Sets::number];
                    Sets::select(planes_a, planes_b, set);
                    for (std::size_t s = 0; s < Sets::number; s++)
                        bytes[s] += count_in_bytes(set[s]);
                }
            for (std::size_t s = 0; s < Sets::number; s++)
                size[s] += sum_of_bytes(bytes[s]);
        }
        result = Sets::counts(size);
        b += a.size();
    }
}

#if defined(__x86_64__)

// ---- AVX2 -------------------------------------------------------------------------------------------------

using Bits256 = std::uint64_t __attribute__((vector_size(32)));

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
KQ_AVX2 void count_avx2(Blocks a, const PlaneBlock* b, std::span<typename Sets::Counts> counts)
{
    for (auto& result : counts) {
        Bits256 sums[in_fours<Sets>]{};
        for (std::size_t first = 0; first < a.size(); first += blocks_in_bytes<Bits256>) {
            Bits256 bytes[Sets::number]{};
            for (std::size_t k = first; k < std::min(first + blocks_in_bytes<Bits256>, a.size()); k++)
                for (std::size_t word = 0; word < words_of_plane; word += 4) {
                    Planes<Bits256> planes_a, planes_b;
                    load(planes_a, a[k], word);
                    load(planes_b, b[k], word);
                    Bits256 set[Sets::number];
                    Sets::select(planes_a, planes_b, set);
                    for (std::size_t s = 0; s < Sets::number; s++)
                        bytes[s] += count_in_bytes(set[s]);
                }
            for (std::size_t s = 0; s < Sets::number; s++)
                sums[s] += sums_of_bytes(bytes[s]);
        }
        std::int32_t size[in_fours<Sets>];
        for (std::size_t s = 0; s < in_fours<Sets>; s += 4)
            add_lanes(pair_lanes(sums[s], sums[s + 1]), pair_lanes(sums[s + 2], sums[s + 3]), size + s);
        result = Sets::counts(size);
        b += a.size();
    }
}

// ---- AVX-512 with its population count --------------------------------------------------------------------

using Bits512 = std::uint64_t __attribute__((vector_size(64)));

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
KQ_AVX512 void count_avx512(Blocks a, const PlaneBlock* b, std::span<typename Sets::Counts> counts)
{
    for (auto& result : counts) {
        Bits512 sums[in_fours<Sets>]{};
        for (std::size_t k = 0; k < a.size(); k++) {
            Planes<Bits512> planes_a, planes_b;
            load(planes_a, a[k], 0);
            load(planes_b, b[k], 0);
            Bits512 set[Sets::number];
            Sets::select(planes_a, planes_b, set);
            for (std::size_t s = 0; s < Sets::number; s++)
                sums[s] += count_in_words(set[s]);
        }
        std::int32_t size[in_fours<Sets>];
        for (std::size_t s = 0; s < in_fours<Sets>; s += 4)
            add_lanes(pair_lanes(sums[s], sums[s + 1]), pair_lanes(sums[s + 2], sums[s + 3]), size + s);
        result = Sets::counts(size);
        b += a.size();
    }
}

#endif

// ---- characters without a code ----------------------------------------------------------------------------

// Adds what they change; `a` and `b` are species.
void count_uncoded(const BasePlanes& planes, int a, int b, PairCounts& counts)
{
    const auto at = [](std::span<const std::uint64_t> words, std::size_t k) {
        return words.empty() ? 0 : words[k];
    };
    const auto uncoded_a = planes.uncoded(a), uncoded_b = planes.uncoded(b);
    const auto blocks_a = planes.blocks(a), blocks_b = planes.blocks(b);
    for (std::size_t k = 0; k < std::max(uncoded_a.size(), uncoded_b.size()); k++) {
        const auto& block_a = blocks_a[k / words_of_plane];
        const auto& block_b = blocks_b[k / words_of_plane];
        const auto word = k % words_of_plane;
        const auto of_a = at(uncoded_a, k), of_b = at(uncoded_b, k);
        const auto identities = std::popcount(of_a & of_b);
        const auto others = std::popcount((of_a & block_b.base[word]) | (of_b & block_a.base[word]));
        const auto deletions = std::popcount((of_a & block_b.gap[word]) | (of_b & block_a.gap[word]));
        counts.comparable += identities + others + deletions;
        counts.others += others;
        counts.deletions += deletions;
    }
}

// ---- the choice -------------------------------------------------------------------------------------------

template <class Sets>
void count_sets(const BasePlanes& planes, int i, int first_j, std::span<typename Sets::Counts> counts,
                Instructions instructions)
{
    const auto a = planes.blocks(i);
    const auto* const b = planes.blocks(first_j).data();
    switch (instructions) {
#if defined(__x86_64__)
    case Instructions::avx512:
        return count_avx512<Sets>(a, b, counts);
    case Instructions::avx2:
        return count_avx2<Sets>(a, b, counts);
#endif
    default:
        return count_baseline<Sets>(a, b, counts);
    }
}

} // namespace

std::vector<Instructions> usable_instructions()
{
    std::vector<Instructions> usable{Instructions::baseline};
#if defined(__x86_64__)
    if (__builtin_cpu_supports("avx2")) usable.push_back(Instructions::avx2);
    if (__builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512vpopcntdq"))
        usable.push_back(Instructions::avx512);
#endif
    return usable;
}

void count_pairs(const BasePlanes& planes, int i, int first_j, std::span<PairCounts> counts,
                 Instructions instructions)
{
    if (counts.empty()) return;
    count_sets<DifferenceSets>(planes, i, first_j, counts, instructions);
    if (!planes.any_uncoded()) return;
    for (int j = first_j; auto& pair : counts)
        count_uncoded(planes, i, j++, pair);
}

void count_pairs(const BasePlanes& planes, int i, int first_j, std::span<CompositionCounts> counts,
                 Instructions instructions)
{
    if (counts.empty()) return;
    count_sets<CompositionSets>(planes, i, first_j, counts, instructions);
}

} // namespace kq
