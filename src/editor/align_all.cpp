// screen: aligning the cursor row on all gaps of the top row.
#include "editor/align_all.h"

#include "core/edit.h"
#include "core/ensemble_columns.h"
#include "core/options.h"
#include "core/store.h"
#include "editor/editing.h"
#include "editor/navigation.h"
#include "editor/shown_columns.h"
#include "editor/similarity.h"
#include "editor/similarity_plan.h"
#include "editor/view.h"
#include "screen/dialogs.h"

#include <algorithm>
#include <cstddef>
#include <span>
#include <utility>
#include <vector>

namespace kq {

namespace {

// Which of the shown columns hold residues of the aligned rows, and which of others.
void mark_columns(std::span<const int> aligned, std::span<const int> others, AlignedRows& rows)
{
    std::vector<int> shown, own;
    for (int p = next_shown(cursor_position()); p < nb_nuc_tot; p = next_shown(p + 1))
        shown.push_back(p);
    rows.occupied_by_own.assign(static_cast<std::size_t>(nb_nuc_tot), 0);
    rows.occupied_by_others.assign(static_cast<std::size_t>(nb_nuc_tot), 0);
    mark_occupied(aligned, shown, rows.occupied_by_own, 1);
    for (const int p : shown) {
        const auto c = static_cast<std::size_t>(p);
        if (rows.occupied_by_own[c])
            own.push_back(p);
        else
            rows.occupied_by_others[c] = 1; // or it would be hidden
    }
    mark_occupied(others, std::move(own), rows.occupied_by_others, 1);
}

// What can be aligned without looking at it between two steps; false when the rows depend on each other, or
// on text beyond the alignment.
bool plannable(std::span<const char> is_aligned)
{
    const DisplayRow top = top_row();
    if (!is_display_row(top) || !is_display_row(cursor_row())) return false;
    const auto index = static_cast<std::size_t>(top.index);
    const auto seen =
        collapsed(top.ensemble) ? members(top.ensemble) : members(top.ensemble).subspan(index, 1);
    const auto aligned = [&](int species) { return is_aligned[static_cast<std::size_t>(species)] != 0; };
    return std::ranges::none_of(seen, aligned) &&
           std::ranges::all_of(std::span(row_length).first(static_cast<std::size_t>(nb_spec)),
                               [](int length) { return length <= nb_nuc_tot; });
}

AlignedRows rows_to_align(std::span<const char> is_aligned, const Rows& rows)
{
    std::vector<char> is_other(is_aligned.size());
    for (int e = 0; e < nb_ens; e++)
        for (const int species : members(e))
            is_other[static_cast<std::size_t>(species)] = !is_aligned[static_cast<std::size_t>(species)];
    std::vector<int> others;
    for (int species = 0; species < nb_spec; species++)
        if (is_other[static_cast<std::size_t>(species)]) others.push_back(species);

    AlignedRows aligned{.top = row_text(top_row()).text,
                        .own = row_text(cursor_row()).text,
                        .occupied_by_others = {},
                        .occupied_by_own = {},
                        .all_shown = opt_nogap != 0,
                        .columns = nb_nuc_tot,
                        .longest_growth = std::max(0, std::min(lenseq_tot - 2, max_alignment) - nb_nuc_tot),
                        .free_columns = free_columns_at_end(rows),
                        .cursor = cursor_position(),
                        .ranked_places = std::min(nb_spec - 1, max_hits),
                        .pattern_length = typed_pattern};
    if (!aligned.all_shown) mark_columns(rows.species(), others, aligned);
    return aligned;
}

// Takes the steps that need no answer.
void align_clear_gaps()
{
    const Rows rows = target_rows();
    std::vector<char> is_aligned(static_cast<std::size_t>(nb_spec));
    for (const int species : rows.species())
        is_aligned[static_cast<std::size_t>(species)] = 1;
    if (!plannable(is_aligned)) return;
    const GapPlan plan = plan_gaps(rows_to_align(is_aligned, rows));
    if (plan.runs.empty() || (plan.growth > 0 && allonge_seq(plan.growth) != ok)) return;

    mark_changed();
    const int first = plan.runs.front().position;
    rewrite_columns(rows.species(), first, nb_nuc_tot,
                    [&](int, std::span<char> text) { insert_gaps(text, first, plan.runs); });
    reactualise(-1);
    deplace_site_droite(shown_between(cursor_position(), plan.cursor));
}

} // namespace

Redraw align_all_key()
{
    int position = 0;
    do {
        align_clear_gaps();
        position = cursor_position();
        // The last step finds out what is left; where only hidden columns follow the cursor may come back.
    } while (aligne_proche() == ok && cursor_position() > position);
    return redraw_all_rows;
}

} // namespace kq
