// kernel: the distances between the subtrees that neighbour joining has left.
#pragma once

#include "analysis/work_meter.h"

#include <algorithm>
#include <cstddef>
#include <vector>

namespace kq {

// What a join does to the distances of each place: one to i and one to j go, one to the joined subtree comes.
// 0 for places out of use and for i and j themselves.
struct JoinedRow {
    std::vector<float> to_i, to_j, joined;
};

// The lower triangle of a matrix that loses rows. A row and its column stay where they are, at their place,
// when others go, so that the places in use, ascending, are the slots; pack() moves them together.
class JoinMatrix {
public:
    // `cells`: n rows of n numbers, of which those with row > column are used.
    JoinMatrix(float* cells, std::size_t n);

    std::size_t width() const { return width_; } // places, those out of use included
    std::size_t slots() const { return used_.size(); }
    const std::vector<std::size_t>& used() const { return used_; } // the place of each slot
    int slot_of(std::size_t place) const;

    // The distances of a place to those before it; no sense in those out of use.
    const float* row(std::size_t place) const { return cells_ + place * stride_; }
    float at(std::size_t a, std::size_t b) const { return a > b ? row(a)[b] : row(b)[a]; } // a != b
    // By place: the distance to each other one in use; 0 for those out of use and the place itself.
    std::vector<float> distances(std::size_t place) const;
    // Joins i to j, i > j: the joined subtree is at j, and i is out of use from now on.
    const JoinedRow& join(std::size_t i, std::size_t j);
    bool worth_packing() const;
    // Slot s is at place s from now on. False when the meter said stop.
    bool pack(WorkMeter& meter);

private:
    float& cell(std::size_t a, std::size_t b) { return cells_[std::max(a, b) * stride_ + std::min(a, b)]; }

    float* cells_;
    std::size_t stride_, width_;
    std::vector<std::size_t> used_;
    JoinedRow row_; // of the last join
    std::size_t joined_place_;
};

} // namespace kq
