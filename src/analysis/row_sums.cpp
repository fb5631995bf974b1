// kernel: the row sums of neighbour joining, kept up to date and yet the same bits.
#include "analysis/row_sums.h"

#include <algorithm>
#include <limits>

namespace kq {

namespace {

constexpr double half_unit = std::numeric_limits<double>::epsilon() / 2; // rounding, relative

// The power of two above the mass.
double grid_of(double mass)
{
    if (!std::isfinite(mass)) return 0;
    return std::ldexp(1.0, std::ilogb(std::max(mass, std::numeric_limits<double>::min())) + 1);
}

// Of a sum of `terms` numbers and of their mass, in whatever order.
double rounding(double terms, double mass)
{
    return 2 * terms * half_unit * mass;
}

} // namespace

RowSums::RowSums(const JoinMatrix& matrix)
    : matrix_(matrix)
    , sum_(matrix.width())
    , mass_(matrix.width())
    , grid_(matrix.width())
    , error_(matrix.width())
{
}

bool RowSums::measure(WorkMeter& meter)
{
    const std::size_t width = matrix_.width();
    std::fill(sum_.begin(), sum_.end(), 0.0);
    std::fill(mass_.begin(), mass_.end(), 0.0);
    for (std::size_t i = 0; i < width; i++) {
        const Total own = add_up(matrix_.row(i), i);
        sum_[i] = own.sum;
        mass_[i] = own.mass;
        add_to_columns(matrix_.row(i), sum_.data(), mass_.data(), i);
        if (!meter.spend(2 * i)) return false;
    }
    std::transform(mass_.begin(), mass_.end(), grid_.begin(), grid_of);
    std::vector<double> off(width);
    for (std::size_t i = 0; i < width; i++) {
        off[i] = off_grid(matrix_.row(i), grid_[i], i);
        off_grids(matrix_.row(i), grid_.data(), off.data(), i);
        if (!meter.spend(2 * i)) return false;
    }
    for (std::size_t i = 0; i < width; i++) {
        const bool on_grid = off[i] == 0;
        if (!on_grid) grid_[i] = 0;
        error_[i] = on_grid ? 0 : rounding(slots(), mass_[i]);
        all_finite_ = all_finite_ && finite(i);
    }
    added_up_.clear();
    return true;
}

void RowSums::join(std::size_t j, const JoinedRow& row)
{
    const std::size_t width = matrix_.width();
    replace_terms(arrays(), row.to_i.data(), row.to_j.data(), row.joined.data(), width);
    const Total own = add_up(row.joined.data(), width);
    const double grid = grid_of(own.mass);
    const bool on_grid = off_grid(row.joined.data(), grid, width) == 0;
    sum_[j] = own.sum;
    mass_[j] = own.mass;
    grid_[j] = on_grid ? grid : 0;
    error_[j] = on_grid ? 0 : rounding(slots(), own.mass);
    all_finite_ = all_finite_ && finite(j); // a term that is not finite is one of this row, too
    added_up_.clear();
}

double RowSums::literal(std::size_t place)
{
    if (exact(place)) return sum_[place];
    for (const auto& [known, sum] : added_up_)
        if (known == place) return sum;
    double sum = 0;
    for (const std::size_t other : matrix_.used())
        if (other != place) sum += static_cast<double>(matrix_.at(place, other));
    added_up_.emplace_back(place, sum);
    return sum;
}

void RowSums::raise_heights(double divisor, const double* closed, double* height)
{
    // Q and the bounds of it take far less than 32 roundings.
    constexpr double exact = 32 * half_unit;
    const HeightRule rule{1 / divisor, exact, exact + rounding(slots(), 1)};
    kq::raise_heights(arrays(), closed, rule, height, matrix_.width());
}

} // namespace kq
