// kernel: which pairs of a shrinking matrix may have the smallest Q.
#include "analysis/nearest_pairs.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace kq {

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double half_unit = std::numeric_limits<double>::epsilon() / 2; // rounding, relative
constexpr std::size_t nowhere = static_cast<std::size_t>(-1);

double just_above(double value)
{
    return std::nextafter(value, infinity);
}

} // namespace

Contest::Contest(const JoinMatrix& matrix, RowSums& sums, double start)
    : matrix_(matrix)
    , sums_(sums)
    , divisor_(static_cast<double>(matrix.slots()) - 2)
    , q_(start)
{
}

void Contest::enter(std::size_t i, std::size_t j)
{
    const double q = q_of(matrix_.at(i, j), sums_.literal(i), sums_.literal(j));
    const bool before = decided_ && std::pair(i, j) < std::pair(i_, j_);
    if (!(q < q_ || (q == q_ && before))) return;
    q_ = q;
    i_ = i;
    j_ = j;
    decided_ = true;
}

NearestPairs::NearestPairs(const JoinMatrix& matrix, RowSums& sums)
    : matrix_(matrix)
    , sums_(sums)
    , closed_(matrix.width())
    , height_(matrix.width())
    , base_(matrix.width())
    , low_(matrix.width())
    , rest_(matrix.width())
    , near_(matrix.width())
    , stay_of_(matrix.width())
{
    for (std::size_t place = 0; place < matrix.width(); place++)
        begin_stay(place);
}

void NearestPairs::begin_stay(std::size_t place)
{
    stay_of_[place] = static_cast<Stay>(place_of_.size());
    place_of_.push_back(place);
}

void NearestPairs::close(std::size_t place)
{
    if (!is_open(place)) return;
    closed_[place] = -infinity;
    height_[place] = base_[place] = -infinity;
    low_[place] = infinity;
    rest_[place] = -infinity; // no pair is nearer
    place_of_[stay_of_[place]] = nowhere;
    std::erase(opened_, place);
}

void NearestPairs::open(std::size_t place)
{
    closed_[place] = 0;
    base_[place] = infinity; // no growth
    begin_stay(place);
    opened_.push_back(place);
}

void NearestPairs::raise()
{
    sums_.raise_heights(static_cast<double>(matrix_.slots()) - 2, closed_.data(), height_.data());
    growth_ = largest_difference(height_.data(), base_.data(), matrix_.width());
    if (growth_ == -infinity) growth_ = 0; // nothing has a base yet
}

// With the base of a place that has just been opened its pairs are no nearer than they look.
void NearestPairs::admit(std::size_t place)
{
    read_row(place);
    const std::vector<float> distances = matrix_.distances(place);
    const double base = base_[place];
    const std::size_t width = matrix_.width();
    // Rows with d - base < rest, and those that rounding makes look so.
    const auto next = [&](std::size_t from) {
        return next_below(distances.data(), rest_.data(), from, width,
                          base + 4 * half_unit * std::fabs(base));
    };
    for (std::size_t i = next(place + 1); i < width; i = next(i + 1))
        add_near(i, {distances[i], stay_of_[place]});
}

bool NearestPairs::admit_opened(WorkMeter& meter)
{
    // Ascending: a pair of two of them comes with the row of the later one.
    std::ranges::sort(opened_);
    for (const std::size_t place : opened_)
        base_[place] = height_[place] - growth_;
    for (const std::size_t place : opened_) {
        admit(place);
        if (!meter.spend(16 * matrix_.width())) return false;
    }
    opened_.clear();
    return true;
}

// Finds anew which pairs of the row are kept.
void NearestPairs::read_row(std::size_t i)
{
    const float* const row = matrix_.row(i);
    Lanes lows = lane_minima(row, base_.data(), i);
    // At least so many pairs as are kept, and one more, are not beyond this.
    std::nth_element(lows.begin(), lows.begin() + most_kept, lows.end());
    double limit = just_above(lows[most_kept]);

    std::array<std::pair<double, std::size_t>, most_kept + 1> nearest;
    std::size_t found = 0;
    for (std::size_t j = next_below(row, base_.data(), 0, i, limit); j < i;
         j = next_below(row, base_.data(), j + 1, i, limit)) {
        const std::pair value{static_cast<double>(row[j]) - base_[j], j};
        if (found < nearest.size()) found++;
        const auto end = nearest.begin() + static_cast<std::ptrdiff_t>(found);
        const auto at = std::upper_bound(nearest.begin(), end - 1, value);
        std::move_backward(at, end - 1, end);
        *at = value;
        if (found == nearest.size()) limit = nearest.back().first;
    }

    NearList& list = near_[i];
    list.count = std::min(found, most_kept);
    for (std::size_t k = 0; k < list.count; k++)
        list.pairs[k] = {row[nearest[k].second], stay_of_[nearest[k].second]};
    rest_[i] = found == nearest.size() ? nearest.back().first : infinity;
    low_[i] = found > 0 ? nearest.front().first : infinity;
    numbers_read_ += 2 * i;
}

void NearestPairs::forget_closed(NearList& list) const
{
    const auto closed = [&](const Near& near) { return place_of_[near.stay] == nowhere; };
    const auto begin = list.pairs.begin();
    list.count = static_cast<std::size_t>(
        std::remove_if(begin, begin + static_cast<std::ptrdiff_t>(list.count), closed) - begin);
}

// Among the kept pairs, or else the rest.
void NearestPairs::add_near(std::size_t i, const Near& near)
{
    NearList& list = near_[i];
    forget_closed(list);
    low_[i] = std::min(low_[i], above_base(near));
    if (list.count < most_kept) {
        list.pairs[list.count++] = near;
        return;
    }
    Near farthest = near;
    for (Near& kept : list.pairs)
        if (above_base(kept) > above_base(farthest)) std::swap(kept, farthest);
    rest_[i] = std::min(rest_[i], above_base(farthest));
}

// A pair wins or draws only where d - h(i) - h(j), as rounded here, is below this.
double NearestPairs::limit(const Contest& contest) const
{
    const double lowest = contest.lowest();
    return just_above(lowest + 32 * half_unit * (std::fabs(lowest) + std::fabs(growth_)));
}

void NearestPairs::enter_kept(std::size_t i, Contest& contest)
{
    NearList& list = near_[i];
    forget_closed(list);
    low_[i] = rest_[i];
    for (const Near& near : list.all()) {
        const std::size_t j = place_of_[near.stay];
        low_[i] = std::min(low_[i], above_base(near));
        if (static_cast<double>(near.distance) - height_[j] - height_[i] < limit(contest))
            contest.enter(i, j);
    }
}

void NearestPairs::enter_all(std::size_t i, Contest& contest)
{
    const float* const row = matrix_.row(i);
    const auto next = [&](std::size_t from) {
        return next_below(row, height_.data(), from, i, limit(contest) + height_[i]);
    };
    for (std::size_t j = next(0); j < i; j = next(j + 1))
        contest.enter(i, j);
    numbers_read_ += i;
}

bool NearestPairs::find(Contest& contest, WorkMeter& meter)
{
    const std::size_t width = matrix_.width();
    raise();
    if (!admit_opened(meter)) return false;

    const Lanes lows = lane_minima(low_.data(), height_.data(), width);
    const double lowest = *std::min_element(lows.begin(), lows.end());
    // The best pair of this row is likely to keep most others out.
    const std::size_t first = next_below(low_.data(), height_.data(), 0, width, just_above(lowest));
    if (first < width) enter_kept(first, contest);

    const auto next = [&](std::size_t from) {
        return next_below(low_.data(), height_.data(), from, width, limit(contest) + growth_);
    };
    for (std::size_t i = next(0); i < width; i = next(i + 1)) {
        const std::size_t read_before = numbers_read_;
        enter_kept(i, contest);
        if (rest_[i] - height_[i] < limit(contest) + growth_) {
            read_row(i);
            enter_kept(i, contest);
            if (rest_[i] - height_[i] < limit(contest) + growth_) enter_all(i, contest);
        }
        if (!meter.spend(numbers_read_ - read_before)) return false;
    }
    return true;
}

bool NearestPairs::worth_resetting() const
{
    return numbers_read_ > matrix_.width() * matrix_.width() / 2;
}

bool NearestPairs::reset(WorkMeter& meter)
{
    sums_.raise_heights(static_cast<double>(matrix_.slots()) - 2, closed_.data(), height_.data());
    base_ = height_;
    growth_ = 0;
    opened_.clear();
    place_of_.clear();
    for (std::size_t place = 0; place < matrix_.width(); place++) {
        begin_stay(place);
        if (!is_open(place)) place_of_.back() = nowhere;
    }
    for (std::size_t i = 0; i < matrix_.width(); i++) {
        if (is_open(i)) read_row(i);
        if (!meter.spend(2 * i)) return false;
    }
    numbers_read_ = 0;
    return true;
}

} // namespace kq
