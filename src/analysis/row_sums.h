// kernel: the row sums of neighbour joining, kept up to date and yet the same bits.
//
// By definition a row sum is added up in the order of the slots, in double, and rounding depends on the
// order. But where all terms are multiples of one small unit and their absolute values (the mass of the row)
// add up to at most 2^53 units, every partial sum in whatever order is exact: the sum can be brought up to
// date by subtracting the terms that go and adding the one that comes. Distances have 24 bits, so that this
// is the rule. Elsewhere the sum is an approximation with a known error, which is enough for finding the few
// pairs that matter, and literal() adds up for these.
#pragma once

#include "analysis/join_matrix.h"
#include "analysis/joining_loops.h"

#include <cmath>
#include <cstddef>
#include <utility>
#include <vector>

namespace kq {

class RowSums {
public:
    explicit RowSums(const JoinMatrix& matrix);

    // Adds up all rows of a packed matrix; false when the meter said stop.
    bool measure(WorkMeter& meter);
    // After a join whose subtree is at j.
    void join(std::size_t j, const JoinedRow& row);

    // The sum as defined. An infinite or undefined one has its exact kind, too: see below.
    double literal(std::size_t place);
    // Infinite or undefined as the literal sum is; else exact, or an approximation.
    double sum(std::size_t place) const { return sum_[place]; }
    bool finite(std::size_t place) const { return std::isfinite(sum_[place]); }
    bool all_finite() const { return all_finite_; } // of the places in use
    bool exact(std::size_t place) const { return grid_[place] > 0; }

    // Upper bounds of literal(place) / divisor, with room for the rounding of Q; -infinity where the sum is
    // not finite or closed[place] says so (else 0).
    void raise_heights(double divisor, const double* closed, double* height);

private:
    SumArrays arrays() { return {sum_.data(), mass_.data(), grid_.data(), error_.data()}; }
    double slots() const { return static_cast<double>(matrix_.slots()); }

    const JoinMatrix& matrix_;
    bool all_finite_ = true;
    // By place: the sum; the mass; a power of two, more than half the mass, such that all terms are multiples
    // of the unit in its last place, or 0 when there is none; how far sum and mass may be from the exact
    // ones.
    std::vector<double> sum_, mass_, grid_, error_;
    std::vector<std::pair<std::size_t, double>> added_up_; // literal sums since the last join
};

} // namespace kq
