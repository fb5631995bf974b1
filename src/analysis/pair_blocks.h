// kernel: a computation over all pairs of species, block by block and on all cores.
#pragma once

#include "analysis/report.h"

#include <algorithm>
#include <cstdint>
#include <functional>

namespace kq {

// The pairs i > j (0-based) with i from first_i and j from first_j, both below their ends. Row i of it is
// j = first_j .. end_of_row(i) - 1, which may be none.
struct PairBlock {
    int first_i, end_i, first_j, end_j;

    int end_of_row(int i) const { return std::min(end_j, i); }
    std::int64_t pairs() const
    {
        std::int64_t sum = 0;
        for (int i = first_i; i < end_i; i++)
            sum += std::max(0, end_of_row(i) - first_j);
        return sum;
    }
};

inline std::int64_t number_of_pairs(int n)
{
    return static_cast<std::int64_t>(n) * (n - 1) / 2;
}

// What a body asks between pieces of a long block; works on every thread.
class Pace {
public:
    // False: the computation is to stop, the body returns at once. On the thread that started the computation
    // this is also where the report is made when one is due.
    virtual bool go_on() = 0;

protected:
    ~Pace() = default;
};

// Computes the pairs of one block and returns how many of them count as done. Several threads run bodies at
// the same time. A body that may take longer than some 10 ms asks pace.go_on() in between.
using PairBody = std::function<std::int64_t(const PairBlock& block, Pace& pace)>;

// Runs `body` over all pairs of n species in blocks of at most side x side pairs, on all threads, the calling
// one among them. `report` gets the pairs done so far, never less than before, and their total at the end.
// False when it asked to stop. What a body or the report throws ends the run and is thrown again from here.
bool for_pair_blocks(int n, int side, const PairBody& body, const Report& report);

} // namespace kq
