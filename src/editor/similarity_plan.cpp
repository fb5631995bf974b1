// kernel: what aligning a row on the gaps of the top row will do.
#include "editor/similarity_plan.h"

#include "editor/similarity_kernel.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>
#include <string>

namespace kq {

namespace {

// The state between two steps. All gaps stand before the cursor: from there on the row is the old one, moved
// right.
class Planner {
public:
    explicit Planner(const AlignedRows& rows)
        : rows_(rows)
        , top_(rows.top)
        , columns_(rows.columns)
        , last_residue_(rows.columns - rows.free_columns)
    {
        plan_.cursor = rows.cursor;
    }

    GapPlan run()
    {
        while (step()) {
        }
        return std::move(plan_);
    }

private:
    char top(int column) const
    {
        const auto c = static_cast<std::size_t>(column);
        return c < rows_.top.size() ? rows_.top[c] : ' ';
    }
    char own(int column) const
    {
        const auto c = static_cast<std::size_t>(column - moved_);
        return c < rows_.own.size() ? rows_.own[c] : ' ';
    }
    bool others_show(int column) const
    {
        const auto c = static_cast<std::size_t>(column);
        return rows_.all_shown || (c < rows_.occupied_by_others.size() && rows_.occupied_by_others[c]);
    }
    bool shown(int column) const
    {
        const auto c = static_cast<std::size_t>(column - moved_);
        return others_show(column) || (c < rows_.occupied_by_own.size() && rows_.occupied_by_own[c]);
    }

    // The next gap of the top row that is none of the own one; `columns_` when there is none.
    int next_gap() const
    {
        int p = plan_.cursor + 1;
        while (p < columns_ && !(shown(p) && top(p) == '*' && own(p) != '*'))
            p++;
        return p;
    }

    // Columns from p to the best hit of the residues there; 0 when no gaps are put in without a question.
    int clear_distance(int p) const
    {
        const auto pattern = residues_from(rows_.own, p - moved_, rows_.pattern_length);
        if (pattern.empty()) return 0;
        std::array<SimilarityHit, 2> hits;
        const auto places = static_cast<std::size_t>(std::clamp(rows_.ranked_places, 0, 2));
        top_.rank(pattern, {.first = 0, .last = columns_ - static_cast<int>(pattern.size()) + 1},
                  std::span(hits).first(places));
        const int d = hits[0].position - p;
        return d > 0 && hit_is_clear(d, hits[0].score, hits[1].score) ? d : 0;
    }

    // Plans the next gaps; false when there is nothing to do, or more than putting gaps before residues and
    // moving right.
    bool step()
    {
        const int p = next_gap();
        const int d = clear_distance(p);
        if (d == 0) return false; // else the pattern's residues follow, which the gaps move
        const int growth = std::max(0, d - (columns_ - last_residue_));
        if (plan_.growth + growth > rows_.longest_growth) return false;

        int hidden_before = 0, hidden_after = 0;
        for (int c = p; c < p + d; c++) {
            hidden_before += !shown(c);
            hidden_after += !others_show(c);
        }
        moved_ += d;
        columns_ += growth;
        last_residue_ += d;
        // The cursor goes to the first shown column, and on.
        int moves = d - (hidden_after - hidden_before);
        int c = p;
        for (; c < columns_; c++) {
            const bool is_shown = c < p + d ? others_show(c) : shown(c);
            if (is_shown && moves-- == 0) break;
        }
        if (c == columns_) return false;
        plan_.runs.push_back({.position = p, .count = d});
        plan_.growth += growth;
        plan_.cursor = c;
        return true;
    }

    const AlignedRows& rows_;
    SearchedRow top_;
    GapPlan plan_;
    int moved_ = 0; // columns that the rest of the row has moved right
    int columns_, last_residue_;
};

} // namespace

GapPlan plan_gaps(const AlignedRows& rows)
{
    return Planner(rows).run();
}

void insert_gaps(std::span<char> text, int first, std::span<const GapRun> runs)
{
    int moved = 0;
    for (const auto& run : runs)
        moved += run.count;
    int end = static_cast<int>(text.size());
    // From the right, so that nothing is overwritten before it has moved.
    for (std::size_t r = runs.size(); r-- > 0; moved -= runs[r].count) {
        const int gap = runs[r].position - first, behind = gap + runs[r].count;
        if (behind < end)
            std::memmove(text.data() + behind, text.data() + behind - moved,
                         static_cast<std::size_t>(end - behind));
        std::fill(text.begin() + std::min(gap, end), text.begin() + std::min(behind, end), '*');
        end = std::min(gap, end);
    }
}

} // namespace kq
