// kernel: the series of the gamma distances of Rzhetsky and Nei (1994).
//
// Each series is a sum of products that are longer from term to term. A product is carried on from the term
// before instead of being started again: the same operations in the same order, so the same bits. A sum ends
// early only where the terms left provably no longer change it. All is computed in double precision, each
// factor by itself and from left to right as it is written below, and rounded to the stored float at the end.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace kq {

// The values last computed, by key: a table of fixed size in which newer keys take the places of older ones.
template <class Value>
class RecentValues {
public:
    // 2^bits values; takes no memory before it is used.
    explicit RecentValues(int bits)
        : shift_(64 - bits)
    {
    }
    // The value of a key; `is_new` when it is that of another key, or none.
    Value& at(std::uint64_t key, bool& is_new)
    {
        if (slots_.empty()) slots_.resize(std::size_t{1} << (64 - shift_));
        Slot* const places = &slots_[key * 0x9E3779B97F4A7C15U >> shift_ & ~(places_of_key - 1)];
        for (std::size_t k = 0; k < places_of_key; k++)
            if (places[k].key == key) return is_new = false, places[k].value;
        Slot& slot = places[next_++ % places_of_key];
        slot.key = key;
        is_new = true;
        return slot.value;
    }

private:
    static constexpr std::size_t places_of_key = 4;
    struct Slot {
        std::uint64_t key = ~std::uint64_t{0};
        Value value{};
    };
    std::vector<Slot> slots_;
    std::size_t next_ = 0;
    int shift_;
};

// The series for one alpha. Remembers what it has computed, so a thread keeps one for all its pairs and
// shares it with no other; its tables take a few megabytes, those of kimura
// up to some 50.
//
// L is the number of positions without a deletion; with none the distance is 0. Counts up to L are the rule.
// A greater k makes a denominator zero and later ones negative: the terms, and so the distance, are infinite
// for k = L + 1 and undefined (NaN) above it. Great counts can go beyond what a double holds: what infinity
// and 0 then give (infinity or NaN) is the distance, too.
//
// What a value costs: some 10 ns where it is remembered, else some 5 ns for each of about 60 terms, and
// kimura some 10 microseconds where an s and v are new. The more positions differ the more terms there are, k
// or s + v at most; kimura takes milliseconds for an s and v where the products come near to what a double
// holds, which begins at 400 transitions and 350 transversions, say.
class GammaSeries {
public:
    explicit GammaSeries(double alpha);

    // Gamma Jukes-Cantor, k differences of all kinds: the sum for m = 1 .. k of t(m); t(1) = k / L, t(i) =
    // t(i - 1) * q(i) / (0.75 * alpha * i), q(i) = ((i - 1) * alpha + 1) * (k - i + 1) / (L - i + 1).
    // Deliberate: no factor before the sum.
    float jukes_cantor(int k, int L);
    // Proteins, k differences: alpha times such a sum, divided by i * alpha instead.
    float protein(int k, int L);
    // Gamma Kimura, s transitions and v transversions: alpha * ((A + 1) / 2 + (B + 1) - 1.5) / 2, where
    // A = sum for m = 1 .. v of the product for u = 1 .. m of
    //     ((u - 1) * alpha + 1) * (v - u + 1) / (L - u + 1) / (0.5 * alpha * u);
    // B = sum for m = 1 .. s + v of b(m) * c(m);
    //     b(m) = product for u = 1 .. m of ((u - 1) * alpha + 1) / ((L - u + 1) * alpha);
    //     c(m) = sum for r = max(0, m - v) .. min(m, s) of e(m, r);
    //     e(m, r) = 1 for r = 0, else s / r; times 2 * (s - w) / w for each w = 1 .. r - 1;
    //     then times (v - z) / (m - r - z) for each z = 0 .. m - r - 1.
    float kimura(int s, int v, int L);

private:
    double alpha_;
    RecentValues<float> jukes_cantor_, protein_;     // by k and L
    RecentValues<double> first_sums_;                // A, by v and L
    RecentValues<std::vector<double>> factors_;      // b(0), b(1), ... by L
    RecentValues<std::vector<double>> starts_;       // e(r, r) for r = 0, 1, ... by s, as many as were needed
    RecentValues<std::vector<double>> coefficients_; // c(0), c(1), ... by s and v, as many as were needed

    const std::vector<double>& factors(int L);
    // c(m) of s and v, where those before m are in `c`.
    double coefficient(std::vector<double>& c, int s, int v, int m);
    double second_sum(int s, int v, int L);
    double shortened_sum(const std::vector<double>& b, std::vector<double>& c, int s, int v, int L);
};

} // namespace kq
