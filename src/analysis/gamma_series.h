// kernel: the series of the gamma distances of Rzhetsky and Nei (1994).
//
// Each series is a sum of products that are longer from term to term. A product is carried on from the term
// before instead of being started again: the same operations in the same order, so the same bits. A sum ends
// early only where the terms left provably no longer change it. All is computed in double precision, as the
// formulas below are written, from left to right, and rounded to the stored float at the end.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace kq {

// The values last computed, by key: a table of fixed size in which a newer key takes the place of an older
// one. It takes no memory before it is asked.
template <class Value>
class RecentValues {
public:
    explicit RecentValues(int bits)
        : bits_(bits)
    {
    }
    // The slot of a key; `is_new` when its value is not that of the key (but of another, or none).
    Value& slot(std::uint64_t key, bool& is_new)
    {
        if (slots_.empty()) slots_.resize(std::size_t{1} << bits_);
        auto& slot = slots_[key * 0x9E3779B97F4A7C15U >> (64 - bits_)];
        is_new = slot.key != key;
        slot.key = key;
        return slot.value;
    }

private:
    struct Slot {
        std::uint64_t key = ~std::uint64_t{0};
        Value value{};
    };
    int bits_;
    std::vector<Slot> slots_;
};

// The series for one alpha. Remembers what it has computed, so a thread keeps one for all its pairs and
// shares it with no other; it takes a few megabytes, for kimura up to some 50.
//
// L is the number of positions without a deletion; with none the distance is 0. Counts up to L are the rule.
// A greater k makes a denominator zero and later ones negative: the terms, and so the distance, are infinite
// for k = L + 1 and undefined (NaN) above it. Great counts can go beyond what a double holds: what infinity
// and 0 then give (infinity or NaN) is the distance, too.
//
// What a value costs: about 10 ns where it is remembered, else up to 15 ns a term and, while the share of
// differences is below a half, about 60 terms; k terms at most. kimura: about 0.1 microseconds once the
// tables are filled; where the products outgrow a double (from about 600 differences on) tables of all s + v
// terms take milliseconds a pair of counts.
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
    // b(0), b(1), ... of an L; those before `reliable` have the precision of a double or are below 2^-1000.
    struct Factors {
        std::vector<double> b;
        int reliable = 0;
    };
    double alpha_;
    RecentValues<float> jukes_cantor_, protein_;     // by k and L
    RecentValues<double> first_sums_;                // A, by v and L
    RecentValues<Factors> factors_;                  // by L
    RecentValues<std::vector<double>> starts_;       // e(m, r) for m = r, by s
    RecentValues<std::vector<double>> coefficients_; // c(0), c(1), ... by s and v, as many as were needed

    const Factors& factors(int L);
    // c(m) of s and v, where those before m are in `c`.
    double coefficient(std::vector<double>& c, int s, int v, int m);
    double second_sum(int s, int v, int L);
    double shortened_sum(const std::vector<double>& b, std::vector<double>& c, int s, int v, int L);
};

} // namespace kq
