// kernel: neighbour joining.
//
// The tree of Saitou and Nei (1987) in the form of Studier and Keppler (1988). Subtrees stand in slots, at
// first the n species in the order of the matrix. While three or more are left, with rr(i) = the sum of
// d(i, k) over all slots k in ascending order, in double:
// - the pair i > j with the smallest Q(i, j) = d(i, j) - (rr(i) + rr(j)) / (slots - 2) is joined; of equals
//   the first with i, then j, ascending; where no Q is below no_q, slots 1 and 0;
// - the branch of i has the length b = (d(i, j) + (rr(i) - rr(j)) / (slots - 2)) / 2, that of j d(i, j) - b;
// - the joined subtree takes slot j and gets the distances (d(k, j) + d(k, i) - d(i, j)) / 2, in single
//   precision step by step; slot i goes, and the slots after it move down by one.
// The last join leaves two slots, whose distance is the length of the third branch of the tree's root.
#pragma once

#include "analysis/report.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace kq {

// Where the search for the smallest Q begins: 1e17 in single precision.
inline constexpr double no_q = 99999998430674944.0;

// Slots nei1 < nei2 at the moment of the join.
struct Join {
    int nei1, nei2;
    double length1, length2; // of their branches; may be negative, infinite or undefined
};

struct Joins {
    std::vector<Join> joins; // n - 2
    double last_length = 0;  // of the slot that the last join left alone
};

// Joins n species, n >= 3. `matrix` is row-major with rows of n numbers; only its lower triangle (i > j) is
// read, and destroyed. What it takes besides is proportional to n. The report gets the joins made so far.
// Nothing when it was stopped.
//
// The result is that of the definition above bit for bit, at a cost nearer to n^2 than to n^3: see
// joining.cpp.
std::optional<Joins> join_neighbors(float* matrix, int n, const Report& report);

} // namespace kq
