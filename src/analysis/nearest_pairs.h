// kernel: which pairs of a shrinking matrix may have the smallest Q.
//
// With the height h(i), an upper bound of rr(i) / (slots - 2), Q(i, j) is at least d(i, j) - h(i) - h(j). The
// heights change with every join, the distances hardly. So each row i keeps, of its pairs with the places
// before it, a few with the smallest d(i, j) - base(j), where base(j) is what h(j) was some time ago, and the
// smallest such value of the rest. With the growth, the largest h(j) - base(j) of all places now, no pair of
// the rest has a Q below rest(i) - growth - h(i): a row is read again only where that is not above the best Q
// of the known pairs. When that has happened too often the bases are set to the heights of now.
#pragma once

#include "analysis/join_matrix.h"
#include "analysis/row_sums.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace kq {

// The search for the smallest Q of one join: pairs are entered and the winner stays.
class Contest {
public:
    Contest(const JoinMatrix& matrix, RowSums& sums, double start);

    void enter(std::size_t i, std::size_t j); // places, i > j
    // Whether a pair with this distance and twice this row sum might win or draw.
    bool interesting(float distance, double sum) const { return q_of(distance, sum, sum) <= q_; }
    double lowest() const { return q_; } // or where the search began
    bool decided() const { return decided_; }
    std::size_t i() const { return i_; }
    std::size_t j() const { return j_; }

private:
    double q_of(float distance, double sum1, double sum2) const
    {
        return static_cast<double>(distance) - (sum1 + sum2) / divisor_;
    }

    const JoinMatrix& matrix_;
    RowSums& sums_;
    double divisor_, q_;
    bool decided_ = false;
    std::size_t i_ = 0, j_ = 0;
};

class NearestPairs {
public:
    // All places of a packed matrix are open; reset() has to follow.
    NearestPairs(const JoinMatrix& matrix, RowSums& sums);

    // A place that is closed takes no part: its row and its column are skipped.
    void close(std::size_t place);
    // An open place whose distances have changed is closed and opened again.
    void open(std::size_t place);
    bool is_open(std::size_t place) const { return closed_[place] == 0; }

    // Enters all pairs of open places that may win. False when the meter said stop.
    bool find(Contest& contest, WorkMeter& meter);

    // Sets the bases to the heights of now and reads all rows. False when the meter said stop.
    bool reset(WorkMeter& meter);
    // Whether rows have been read so often since then that reset() costs less.
    bool worth_resetting() const;

private:
    static constexpr std::size_t most_kept = 4;
    using Stay = std::uint32_t; // number of a time that a place is open
    struct Near {
        float distance;
        Stay stay;
    };
    struct NearList {
        std::array<Near, most_kept> pairs;
        std::size_t count = 0;

        std::span<const Near> all() const { return std::span(pairs).first(count); }
    };

    void raise();
    bool admit_opened(WorkMeter& meter);
    void begin_stay(std::size_t place);
    void admit(std::size_t place);
    void read_row(std::size_t i);
    void add_near(std::size_t i, const Near& near);
    void forget_closed(NearList& list) const;
    void enter_kept(std::size_t i, Contest& contest);
    void enter_all(std::size_t i, Contest& contest);
    double limit(const Contest& contest) const;
    double above_base(const Near& near) const
    {
        return static_cast<double>(near.distance) - base_[place_of_[near.stay]];
    }

    const JoinMatrix& matrix_;
    RowSums& sums_;
    double growth_ = 0;
    std::size_t numbers_read_ = 0;    // since the last reset
    std::vector<std::size_t> opened_; // since the last search
    // By place.
    std::vector<double> closed_;        // 0 or -infinity
    std::vector<double> height_, base_; // -infinity when closed
    std::vector<double> low_, rest_;    // at most the smallest d - base of the row, and of the pairs not kept
    std::vector<NearList> near_;
    std::vector<Stay> stay_of_;
    std::vector<std::size_t> place_of_; // by stay
};

} // namespace kq
