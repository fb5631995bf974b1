// kernel: neighbour joining.
//
// Two things make it fast: row sums are brought up to date instead of added up again (row_sums), and of most
// rows it is known without reading them that none of their pairs can win (nearest_pairs, twin_rows). Pairs
// that may win are compared by Q as defined, on row sums as defined, so that the tree is the same, ties
// included.
#include "analysis/joining.h"

#include "analysis/join_matrix.h"
#include "analysis/nearest_pairs.h"
#include "analysis/row_sums.h"
#include "analysis/twin_rows.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace kq {

namespace {

// Places i > j of a pair.
struct Pair {
    std::size_t i, j;
};

// The joins between one packing of the matrix and the next.
class Round {
public:
    Round(JoinMatrix& matrix, WorkMeter& meter, std::vector<Join>& joins);

    // Joins until the matrix is worth packing or two slots are left; false when the meter said stop.
    bool run();

private:
    bool prepare();
    bool find_neighbor();
    std::optional<Pair> infinite_pair() const;
    void join_neighbor();
    void note_join();
    bool takes_part(std::size_t place) const { return sums_.finite(place) && !twins_.is_hidden(place); }
    void open_and_close();

    JoinMatrix& matrix_;
    WorkMeter& meter_;
    std::vector<Join>& joins_;
    RowSums sums_;
    TwinRows twins_;
    NearestPairs nearest_;
    Pair found_{};
};

Round::Round(JoinMatrix& matrix, WorkMeter& meter, std::vector<Join>& joins)
    : matrix_(matrix)
    , meter_(meter)
    , joins_(joins)
    , sums_(matrix)
    , twins_(matrix, sums_)
    , nearest_(matrix, sums_)
{
}

bool Round::prepare()
{
    if (!sums_.measure(meter_) || !twins_.find(meter_)) return false;
    open_and_close();
    return nearest_.reset(meter_);
}

bool Round::run()
{
    if (!prepare()) return false;
    while (matrix_.slots() > 2 && !matrix_.worth_packing()) {
        if (nearest_.worth_resetting() && !nearest_.reset(meter_)) return false;
        if (!find_neighbor()) return false;
        join_neighbor();
        if (!meter_.spend(8 * matrix_.width())) return false;
    }
    return true;
}

// Twins that are hidden and rows whose sum is not finite take no part in the search.
void Round::open_and_close()
{
    for (const std::size_t place : matrix_.used()) {
        if (takes_part(place) == nearest_.is_open(place)) continue;
        if (takes_part(place))
            nearest_.open(place);
        else
            nearest_.close(place);
    }
}

bool Round::find_neighbor()
{
    if (const auto pair = infinite_pair()) {
        found_ = *pair;
        return true;
    }
    Contest contest(matrix_, sums_, no_q);
    for (const auto& twins : twins_.sets())
        if (contest.interesting(twins.apart, sums_.sum(twins.first)))
            contest.enter(twins.hidden.front(), twins.first);
    if (!nearest_.find(contest, meter_)) return false;
    found_ = contest.decided() ? Pair{contest.i(), contest.j()} : Pair{matrix_.used()[1], matrix_.used()[0]};
    return true;
}

// The first pair whose Q is -infinity: one of the sums is infinite, the other not -infinity or undefined, and
// the distance finite. Other pairs with a sum that is not finite never win.
std::optional<Pair> Round::infinite_pair() const
{
    if (sums_.all_finite()) return std::nullopt;
    const auto infinite = [&](std::size_t place) {
        return sums_.sum(place) == std::numeric_limits<double>::infinity();
    };
    const auto& used = matrix_.used();
    const auto first = std::ranges::find_if(used, infinite);
    for (auto i = first; i != used.end(); ++i) {
        if (!infinite(*i) && !sums_.finite(*i)) continue;
        // Before the first infinite row there is no such pair, and a finite row has only finite distances.
        const auto j = std::find_if(infinite(*i) ? used.begin() : first, i, [&](std::size_t place) {
            return (infinite(place) || (infinite(*i) && sums_.finite(place))) &&
                   std::isfinite(matrix_.at(*i, place));
        });
        if (j != i) return Pair{*i, *j};
    }
    return std::nullopt;
}

void Round::note_join()
{
    const auto [i, j] = found_;
    const double between = matrix_.at(i, j), divisor = static_cast<double>(matrix_.slots()) - 2;
    const double length = (between + (sums_.literal(i) - sums_.literal(j)) / divisor) / 2;
    joins_.push_back({matrix_.slot_of(j), matrix_.slot_of(i), between - length, length});
    meter_.count_unit();
}

// The joined subtree takes place j; place i goes.
void Round::join_neighbor()
{
    note_join();
    const auto [i, j] = found_;
    sums_.join(j, matrix_.join(i, j));
    const bool hidden_changed = twins_.joined(i, j);
    nearest_.close(i);
    nearest_.close(j);
    if (takes_part(j)) nearest_.open(j);
    if (hidden_changed || !sums_.all_finite()) open_and_close();
}

} // namespace

std::optional<Joins> join_neighbors(float* matrix, int n, const Report& report)
{
    Joins result;
    WorkMeter meter(report);
    JoinMatrix left(matrix, static_cast<std::size_t>(n));
    while (left.slots() > 2) {
        if (!left.pack(meter) || !Round(left, meter, result.joins).run()) return std::nullopt;
    }
    result.last_length = left.at(left.used()[1], left.used()[0]);
    return result;
}

} // namespace kq
