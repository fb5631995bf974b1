// kernel: rows of a shrinking matrix that are as good as one.
//
// Two places are twins when they are as far from every other place. Then their row sums are the same, and so
// is Q of a pair with the one and with the other: of such ties the first place wins. So only the first of a
// set of twins needs to take part in the search; the others are hidden. Of the pairs inside the set, all the
// same, the first two stand for all. Identical sequences are twins, and without this a set of them, or a
// matrix of equal distances, would be one tie of all pairs in every join.
#pragma once

#include "analysis/join_matrix.h"
#include "analysis/row_sums.h"

#include <cstddef>
#include <vector>

namespace kq {

class TwinRows {
public:
    struct Twins {
        std::size_t first;
        std::vector<std::size_t> hidden; // the others, ascending, at least one
        float apart;                     // the distance of any two of them
    };

    TwinRows(const JoinMatrix& matrix, const RowSums& sums);

    // Finds the twins of a packed matrix; false when the meter said stop.
    bool find(WorkMeter& meter);
    // Brings the sets up to date after i has been joined to j; whether any place but i and j has been hidden
    // or is no longer.
    bool joined(std::size_t i, std::size_t j);

    const std::vector<Twins>& sets() const { return sets_; }
    bool is_hidden(std::size_t place) const { return hidden_[place] != 0; }

private:
    bool are_twins(std::size_t a, std::size_t b) const;
    void merge(std::size_t a, std::size_t b);
    Twins* set_of(std::size_t first);
    bool lose(Twins& set, std::size_t i, std::size_t j);

    const JoinMatrix& matrix_;
    const RowSums& sums_;
    std::vector<Twins> sets_;
    std::vector<char> hidden_; // by place
};

} // namespace kq
