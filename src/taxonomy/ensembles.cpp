// screen: building an ensemble from a selection on the tree.
#include "taxonomy/ensembles.h"

#include "core/edit.h"
#include "core/store.h"
#include "screen/dialogs.h"
#include "screen/strings.h"
#include "screen/text.h"
#include "taxonomy/bacterial_split.h"
#include "taxonomy/frame.h"
#include "taxonomy/frame_layout.h"
#include "taxonomy/selection.h"
#include "taxonomy/tree_screen.h"
#include "taxonomy/tree_walk.h"

namespace kq {

namespace {

void mark_members_of_others(int ens)
{
    drap_select.fill(-1);
    for (int e = 0; e < nb_ens; e++) {
        if (e == ens) continue;
        for (const int species : members(e))
            drap_select[static_cast<std::size_t>(species)] = 0;
    }
}

// The tree screen, subtree after subtree, until it is left.
int run_tree(int ens)
{
    int result = 0;
    while ((result = gere_arbre(ens)) >= 0)
        no_arbre = result;
    return result;
}

// False when there is nothing to split.
bool split_bacteria()
{
    constexpr int warning_line = 7;
    const BacterialSplit split = selection_auto_bacteria();
    if (split == BacterialSplit::none)
        affich_avert("There are no species in the groups of bacteria", warning_line);
    if (split == BacterialSplit::incomplete)
        affich_avert(text_format("You can select at most %d species per ensemble", max_ensemble_species),
                     warning_line);
    return split != BacterialSplit::none;
}

} // namespace

int construct_ensemble(int ens)
{
    _settextwindow(1, 1, _nb_line, _nb_col);
    _clearscreen(0);
    mark_members_of_others(ens);
    set_selection(members(ens));

    adjust_frame(); // the cell may have changed since the frame was read
    pcour = proot;
    no_arbre = 0;
    int result = run_tree(ens);
    while (result == automatic_selection) {
        if (split_bacteria()) return 0;
        result = run_tree(ens);
    }
    if (result == load_another) return -1;

    set_members(ens, working_list());
    if (ens_names[static_cast<std::size_t>(ens)][0] == '\0')
        ask_for_ensemble_name(ens, group_name(pcour->no));
    return 0;
}

} // namespace kq
