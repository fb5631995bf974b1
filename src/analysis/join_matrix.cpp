// kernel: the distances between the subtrees that neighbour joining has left.
#include "analysis/join_matrix.h"

#include <algorithm>
#include <numeric>

namespace kq {

namespace {

constexpr std::size_t ahead = 16; // rows

} // namespace

JoinMatrix::JoinMatrix(float* cells, std::size_t n)
    : cells_(cells)
    , stride_(n)
    , width_(n)
    , used_(n)
    , joined_place_(n)
{
    std::iota(used_.begin(), used_.end(), std::size_t{0});
}

int JoinMatrix::slot_of(std::size_t place) const
{
    return static_cast<int>(std::lower_bound(used_.begin(), used_.end(), place) - used_.begin());
}

std::vector<float> JoinMatrix::distances(std::size_t place) const
{
    if (place == joined_place_) return row_.joined;
    std::vector<float> distances(width_);
    for (const std::size_t k : used_)
        if (k != place) distances[k] = at(place, k);
    return distances;
}

// Most of the time goes into the columns of i and j below their rows, where each cell is in a line of memory
// of its own: each line is read once, and asked for ahead.
const JoinedRow& JoinMatrix::join(std::size_t i, std::size_t j)
{
    const float between = at(i, j);
    used_.erase(std::lower_bound(used_.begin(), used_.end(), i));
    const std::size_t left = used_.size();
    for (std::size_t s = 0; s < left; s++) {
        const std::size_t k = used_[s], next = s + ahead < left ? used_[s + ahead] : 0;
        if (next > j) __builtin_prefetch(&cell(next, j), 1);
        if (next > i) __builtin_prefetch(&cell(next, i));
        if (k == j) continue;
        const float to_j = cell(k, j), to_i = cell(k, i);
        const float both = to_j + to_i;
        const float beyond = both - between;
        cell(k, j) = beyond / 2;
        row_.to_i[k] = to_i;
        row_.to_j[k] = to_j;
        row_.joined[k] = cell(k, j);
    }
    for (auto* const distances : {&row_.to_i, &row_.to_j, &row_.joined})
        (*distances)[i] = (*distances)[j] = 0;
    joined_place_ = j;
    return row_;
}

bool JoinMatrix::worth_packing() const
{
    return slots() < width_ - width_ / 4;
}

bool JoinMatrix::pack(WorkMeter& meter)
{
    for (std::size_t s = 0; s < slots(); s++) {
        const float* const from = row(used_[s]);
        float* const to = cells_ + s * stride_;
        for (std::size_t t = 0; t < s; t++)
            to[t] = from[used_[t]];
        if (!meter.spend(s)) return false;
    }
    width_ = slots();
    std::iota(used_.begin(), used_.end(), std::size_t{0});
    for (auto* const distances : {&row_.to_i, &row_.to_j, &row_.joined})
        distances->assign(width_, 0.0F);
    joined_place_ = width_;
    return true;
}

} // namespace kq
