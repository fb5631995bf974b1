// kernel: rows of a shrinking matrix that are as good as one.
#include "analysis/twin_rows.h"

#include <algorithm>
#include <span>
#include <utility>

namespace kq {

namespace {

// With how many sets of the same row sum a row is compared. A twin that is not found costs time only.
constexpr std::size_t most_compared = 16;

} // namespace

TwinRows::TwinRows(const JoinMatrix& matrix, const RowSums& sums)
    : matrix_(matrix)
    , sums_(sums)
    , hidden_(matrix.width())
{
}

bool TwinRows::are_twins(std::size_t a, std::size_t b) const
{
    return std::ranges::all_of(matrix_.used(), [&](std::size_t k) {
        return k == a || k == b || matrix_.at(a, k) == matrix_.at(b, k);
    });
}

bool TwinRows::find(WorkMeter& meter)
{
    std::vector<std::pair<double, std::size_t>> rows;
    for (const std::size_t place : matrix_.used())
        if (sums_.exact(place)) rows.emplace_back(sums_.sum(place), place);
    std::sort(rows.begin(), rows.end());

    std::vector<std::size_t> firsts; // of the row sum at hand
    for (std::size_t r = 0; r < rows.size(); r++) {
        const std::size_t place = rows[r].second;
        if (r > 0 && rows[r].first != rows[r - 1].first) firsts.clear();
        const auto compared = std::span(firsts).first(std::min(firsts.size(), most_compared));
        const auto twin =
            std::ranges::find_if(compared, [&](std::size_t first) { return are_twins(first, place); });
        if (!meter.spend(compared.size() * matrix_.slots())) return false;
        if (twin != compared.end())
            merge(*twin, place);
        else
            firsts.push_back(place);
    }
    return true;
}

TwinRows::Twins* TwinRows::set_of(std::size_t first)
{
    const auto set = std::ranges::find(sets_, first, &Twins::first);
    return set == sets_.end() ? nullptr : &*set;
}

// Both are the first of their set, or have none.
void TwinRows::merge(std::size_t a, std::size_t b)
{
    const auto [first, other] = std::minmax(a, b);
    std::vector<std::size_t> hidden{other};
    if (Twins* const set = set_of(other)) {
        hidden.insert(hidden.end(), set->hidden.begin(), set->hidden.end());
        sets_.erase(sets_.begin() + (set - sets_.data()));
    }
    hidden_[other] = 1;
    Twins* set = set_of(first);
    if (!set) set = &sets_.emplace_back(Twins{first, {}, matrix_.at(first, other)});
    const auto middle = set->hidden.insert(set->hidden.end(), hidden.begin(), hidden.end());
    std::inplace_merge(set->hidden.begin(), middle, set->hidden.end());
}

// Of a set that loses its first place the next one takes part; whether the set has changed. A hidden place
// goes only together with the first.
bool TwinRows::lose(Twins& set, std::size_t i, std::size_t j)
{
    if (set.first != i && set.first != j) return false;
    std::erase(set.hidden, i);
    if (set.hidden.empty()) return true;
    set.first = set.hidden.front();
    set.hidden.erase(set.hidden.begin());
    hidden_[set.first] = 0;
    return true;
}

bool TwinRows::joined(std::size_t i, std::size_t j)
{
    bool changed = false;
    for (Twins& set : sets_) {
        changed = lose(set, i, j) || changed;
        if (sums_.exact(set.first)) continue;
        for (const std::size_t place : set.hidden) // their sums may differ from now on
            hidden_[place] = 0;
        set.hidden.clear();
        changed = true;
    }
    if (changed) std::erase_if(sets_, [](const Twins& set) { return set.hidden.empty(); });

    if (!sums_.exact(j)) return changed;
    const double sum = sums_.sum(j);
    for (const std::size_t place : matrix_.used()) {
        if (sums_.sum(place) != sum || place == j || is_hidden(place) || !sums_.exact(place)) continue;
        if (!are_twins(place, j)) continue;
        merge(place, j);
        return true;
    }
    return changed;
}

} // namespace kq
