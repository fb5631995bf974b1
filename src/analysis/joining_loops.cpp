// kernel: the loops of neighbour joining over whole rows.
//
// They are written for the vectors: minima and sums run in lanes side by side, and both sides of a choice are
// computed before one is taken.
#include "analysis/joining_loops.h"

#include "core/vector_clones.h"

#include <cmath>
#include <limits>

namespace kq {

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double half_unit = std::numeric_limits<double>::epsilon() / 2; // rounding, relative

template <class Number>
[[gnu::always_inline]] inline Lanes minima_in_lanes(const Number* a, const double* b, std::size_t count)
{
    Lanes low;
    low.fill(infinity);
    std::size_t j = 0;
    for (; j + lanes <= count; j += lanes)
        for (std::size_t l = 0; l < lanes; l++) {
            const double difference = a[j + l] - b[j + l];
            low[l] = difference < low[l] ? difference : low[l];
        }
    for (std::size_t l = 0; j < count; j++, l++) {
        const double difference = a[j] - b[j];
        low[l] = difference < low[l] ? difference : low[l];
    }
    return low;
}

template <class Number>
[[gnu::always_inline]] inline std::size_t first_below(const Number* a, const double* b, std::size_t from,
                                                      std::size_t count, double limit)
{
    constexpr std::size_t stretch = 32;
    std::size_t j = from;
    for (; j + stretch <= count; j += stretch) {
        int below = 0;
        for (std::size_t l = 0; l < stretch; l++)
            below |= a[j + l] - b[j + l] < limit ? 1 : 0;
        if (below != 0) break;
    }
    while (j < count && !(a[j] - b[j] < limit))
        j++;
    return j;
}

double total_of(const Lanes& values)
{
    double total = 0;
    for (const double value : values)
        total += value;
    return total;
}

} // namespace

KQ_VECTOR_CLONES
Lanes lane_minima(const float* a, const double* b, std::size_t count)
{
    return minima_in_lanes(a, b, count);
}

KQ_VECTOR_CLONES
Lanes lane_minima(const double* a, const double* b, std::size_t count)
{
    return minima_in_lanes(a, b, count);
}

KQ_VECTOR_CLONES
std::size_t next_below(const float* a, const double* b, std::size_t from, std::size_t count, double limit)
{
    return first_below(a, b, from, count, limit);
}

KQ_VECTOR_CLONES
std::size_t next_below(const double* a, const double* b, std::size_t from, std::size_t count, double limit)
{
    return first_below(a, b, from, count, limit);
}

double largest_difference(const double* a, const double* b, std::size_t count)
{
    double largest = -infinity;
    for (const double difference : lane_minima(b, a, count))
        largest = -difference > largest ? -difference : largest;
    return largest;
}

KQ_VECTOR_CLONES
Total add_up(const float* row, std::size_t count)
{
    Lanes sums{}, masses{};
    std::size_t j = 0;
    for (; j + lanes <= count; j += lanes)
        for (std::size_t l = 0; l < lanes; l++) {
            sums[l] += row[j + l];
            masses[l] += std::fabs(row[j + l]);
        }
    for (; j < count; j++) {
        sums[0] += row[j];
        masses[0] += std::fabs(row[j]);
    }
    return {total_of(sums), total_of(masses)};
}

KQ_VECTOR_CLONES
void add_to_columns(const float* row, double* sum, double* mass, std::size_t count)
{
    for (std::size_t j = 0; j < count; j++) {
        sum[j] += row[j];
        mass[j] += std::fabs(row[j]);
    }
}

KQ_VECTOR_CLONES
double off_grid(const float* row, double grid, std::size_t count)
{
    Lanes off{};
    std::size_t j = 0;
    for (; j + lanes <= count; j += lanes)
        for (std::size_t l = 0; l < lanes; l++) {
            const double size = std::fabs(row[j + l]);
            off[l] += std::fabs((grid + size) - grid - size);
        }
    for (; j < count; j++) {
        const double size = std::fabs(row[j]);
        off[0] += std::fabs((grid + size) - grid - size);
    }
    return total_of(off);
}

KQ_VECTOR_CLONES
void off_grids(const float* row, const double* grid, double* off, std::size_t count)
{
    for (std::size_t j = 0; j < count; j++) {
        const double size = std::fabs(row[j]);
        off[j] += std::fabs((grid[j] + size) - grid[j] - size);
    }
}

KQ_VECTOR_CLONES
void replace_terms(const SumArrays& sums, const float* left1, const float* left2, const float* come,
                   std::size_t count)
{
    double *const sum = sums.sum, *const mass = sums.mass, *const grid = sums.grid, *const error = sums.error;
#pragma omp simd
    for (std::size_t k = 0; k < count; k++) {
        const double a = left1[k], b = left2[k], c = come[k], size = std::fabs(c);
        // An infinite or undefined term goes only where another comes, so that a sum that is not finite stays
        // what it is but for what comes.
        const double with = sum[k] + c, replaced = sum[k] - a - b + c;
        sum[k] = with - with == 0 ? replaced : with;
        const double rounded = error[k] + 8 * half_unit * (mass[k] + error[k] + size);
        mass[k] = mass[k] - std::fabs(a) - std::fabs(b) + size;
        const double off = (grid[k] + size) - grid[k] - size;
        const double on = off == 0 ? grid[k] : 0;
        grid[k] = mass[k] < 2 * on ? on : 0; // at 2 * on the mass may have been rounded down
        error[k] = grid[k] > 0 ? 0 : rounded;
    }
}

KQ_VECTOR_CLONES
void raise_heights(const SumArrays& sums, const double* closed, const HeightRule& rule, double* height,
                   std::size_t count)
{
    const double *const sum = sums.sum, *const mass = sums.mass, *const grid = sums.grid,
                        *const error = sums.error;
    const HeightRule by = rule;
    for (std::size_t k = 0; k < count; k++) {
        const double masses = grid[k] > 0 ? by.exact : by.rounded;
        const double bound = sum[k] + masses * (mass[k] + error[k]) + error[k];
        const double raised = bound * by.factor + closed[k];
        height[k] = sum[k] - sum[k] == 0 ? raised : -infinity;
    }
}

} // namespace kq
