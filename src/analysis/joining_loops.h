// kernel: the loops of neighbour joining over whole rows.
//
// Arrays are indexed by column; the first `count` columns are looked at. Undefined differences are never the
// smallest and never below a limit.
#pragma once

#include <array>
#include <cstddef>

namespace kq {

inline constexpr std::size_t lanes = 64;
using Lanes = std::array<double, lanes>;
// Lane l: the smallest a[j] - b[j] of the columns j that leave l when divided by the number of lanes;
// infinity where there is none.
Lanes lane_minima(const float* a, const double* b, std::size_t count);
Lanes lane_minima(const double* a, const double* b, std::size_t count);

// The first j >= from with a[j] - b[j] < limit; `count` where there is none.
std::size_t next_below(const float* a, const double* b, std::size_t from, std::size_t count, double limit);
std::size_t next_below(const double* a, const double* b, std::size_t from, std::size_t count, double limit);

// The largest a[j] - b[j], -infinity where there is none.
double largest_difference(const double* a, const double* b, std::size_t count);

// The sum of a row's terms in some order, and that of their absolute values.
struct Total {
    double sum, mass;
};
Total add_up(const float* row, std::size_t count);
// Adds each term to the totals of its column.
void add_to_columns(const float* row, double* sum, double* mass, std::size_t count);

// 0 when adding no term to the power of two `grid` rounds anything away, else something positive or
// undefined.
double off_grid(const float* row, double grid, std::size_t count);
// Adds this for each term and the grid of its column to `off`.
void off_grids(const float* row, const double* grid, double* off, std::size_t count);

// What is known of the sums of all rows (analysis/row_sums.h).
struct SumArrays {
    double *sum, *mass, *grid, *error;
};
// Two terms of each row leave its sum and one comes.
void replace_terms(const SumArrays& sums, const float* left1, const float* left2, const float* come,
                   std::size_t count);

// An upper bound of each row sum, however it is added up: the sum, its error, and for what rounding may do
// `exact` or `rounded` masses, depending on whether there is a grid.
struct HeightRule {
    double factor, exact, rounded;
};
// height[k] = that bound times the factor, plus closed[k], which is 0 or -infinity; -infinity where the sum
// is not finite.
void raise_heights(const SumArrays& sums, const double* closed, const HeightRule& rule, double* height,
                   std::size_t count);

} // namespace kq
