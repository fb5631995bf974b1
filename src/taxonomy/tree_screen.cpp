// screen: the tree screen.
#include "taxonomy/tree_screen.h"

#include "core/ali_screen.h"
#include "core/edit.h"
#include "core/shutdown.h"
#include "core/store.h"
#include "screen/dialogs.h"
#include "screen/help.h"
#include "screen/notice.h"
#include "screen/strings.h"
#include "screen/text.h"
#include "screen/window.h"
#include "taxonomy/derived_outputs.h"
#include "taxonomy/ensemble_name.h"
#include "taxonomy/frame.h"
#include "taxonomy/frame_layout.h"
#include "taxonomy/group_file_screen.h"
#include "taxonomy/group_list.h"
#include "taxonomy/group_moves.h"
#include "taxonomy/list_chooser.h"
#include "taxonomy/list_saving.h"
#include "taxonomy/name_search.h"
#include "taxonomy/partial_selection.h"
#include "taxonomy/reorder_screen.h"
#include "taxonomy/selection.h"
#include "taxonomy/species_lists.h"
#include "taxonomy/species_screen.h"
#include "taxonomy/tree_colours.h"
#include "taxonomy/tree_walk.h"

#include <array>
#include <cassert>
#include <string_view>

namespace kq {

namespace {

constexpr int warning_line = 7, list_line = 5, quit_line = 5, other_alignment_line = 6;
constexpr int root_x = 3;
constexpr int steps_of_a_page = 4;

void check_invariants()
{
#ifdef KQ_INVARIANTS
    assert(frame_error().empty());
    assert(selection_error().empty());
#endif
}

} // namespace

int gere_arbre(int ens)
{
    return TreeScreen(ens).run();
}

TreeScreen::ViewRoot::ViewRoot(node& head)
    : head_(head)
    , saved_y_(head.y)
{
    head.y = head.sub;
    head.sub = -1;
    head.x = root_x;
}

TreeScreen::ViewRoot::~ViewRoot()
{
    head_.sub = head_.y;
    head_.x = maxgraph + 3;
    head_.y = saved_y_;
}

TreeScreen::TreeScreen(int ens)
    : ens_(ens)
    , root_(p_arbre[static_cast<std::size_t>(no_arbre)])
{
    view_root_.emplace(*root_);
}

int TreeScreen::run()
{
    forget_scrolling();
    draw(TreeRedraw::screen);
    while (!result_) {
        affich_nb_retenu();
        const auto* binding = tree_keys.find(read_key_with_notice());
        if (!binding) continue;
        const TreeRedraw redraw = (this->*binding->run)();
        check_invariants();
        if (!result_) draw(redraw);
    }
    view_root_.reset();
    return *result_;
}

// The current node is highlighted in any case, and the view follows it.
void TreeScreen::draw(TreeRedraw redraw)
{
    if (bring_into_view(*root_) && redraw != TreeRedraw::screen) redraw = TreeRedraw::tree;
    affich_ecran_arbre(redraw, *root_, ens_);
    active_node(true);
}

TreeRedraw TreeScreen::leave(int result)
{
    result_ = result;
    return TreeRedraw::nothing;
}

TreeRedraw TreeScreen::warn(const char* message) const
{
    affich_avert(message, warning_line);
    return TreeRedraw::tree;
}

TreeRedraw TreeScreen::warn_too_many() const
{
    return warn(text_format("You can select at most %d species per ensemble", max_ensemble_species).c_str());
}

TreeRedraw TreeScreen::help()
{
    _aide("KQ3", 1, 1, _nb_line - 1, 80);
    return TreeRedraw::screen;
}

// ---- selecting --------------------------------------------------------------------------------------------

TreeRedraw TreeScreen::select_below(int mode)
{
    collect_species_below(*pcour);
    retenir_all_specie(mode);
    affich_nb_ret_gro(*pcour);
    return TreeRedraw::nothing;
}

TreeRedraw TreeScreen::select_all()
{
    return select_below(retain_all);
}

TreeRedraw TreeScreen::select_free()
{
    return select_below(retain_free);
}

TreeRedraw TreeScreen::select_new()
{
    return select_below(retain_new);
}

TreeRedraw TreeScreen::select_by_completeness(int direction)
{
    collect_species_below(*pcour);
    if (nb_spec_gro == 0) return TreeRedraw::nothing;
    select_partial_seq(direction);
    return TreeRedraw::tree;
}

TreeRedraw TreeScreen::select_complete()
{
    return select_by_completeness(0);
}

TreeRedraw TreeScreen::select_incomplete()
{
    return select_by_completeness(1);
}

TreeRedraw TreeScreen::deselect()
{
    constexpr std::array<std::string_view, 2> choices = {
        "Deselecting all the selected species", "Deselecting the selected species of the current group"};
    constexpr int width = 56;
    switch (_choice_option(list_line, 0, choices, width)) {
    case 0:
        annule_all();
        set_ensemble_name(ens_, "");
        break;
    case 1:
        annule_groupe(*pcour);
        break;
    default:
        break;
    }
    return TreeRedraw::tree;
}

TreeRedraw TreeScreen::reorder()
{
    return gere_reorder_specie_retenue();
}

// The species screen on the working list, which holds the group's species.
TreeRedraw TreeScreen::list_working_species(int group) const
{
    if (nb_spec_gro == 0) return warn(text_format("There are no species in %s", groupe[group]).c_str());
    choice_specie(group);
    return TreeRedraw::screen;
}

TreeRedraw TreeScreen::list_species()
{
    collect_species_below(*pcour);
    return list_working_species(pcour->no);
}

// Whatever their family: those of families that the frame has no copy for are found nowhere else.
TreeRedraw TreeScreen::list_cupboard()
{
    list_species_of_group(cupboard());
    return list_working_species(cupboard());
}

TreeRedraw TreeScreen::save_list()
{
    return sauvegarde_file_LIS();
}

TreeRedraw TreeScreen::load_list()
{
    return choice_file_LIS();
}

TreeRedraw TreeScreen::search_beginning_of_name()
{
    return cherche_begin_part_ident(search_beginning);
}

TreeRedraw TreeScreen::search_part_of_name()
{
    return cherche_begin_part_ident(search_part);
}

TreeRedraw TreeScreen::finish()
{
    if (nb_retenu > max_ensemble_species) return warn_too_many();
    if (nb_retenu == 0) return warn("You must select at least one species");
    chercher_specie_retenue();
    return leave(selection_finished);
}

TreeRedraw TreeScreen::name_ensemble()
{
    ask_for_ensemble_name(ens_, ens_names[static_cast<std::size_t>(ens_)]);
    return TreeRedraw::tree;
}

// ---- moving -----------------------------------------------------------------------------------------------

TreeRedraw TreeScreen::move(void (*step)(node*), int steps)
{
    active_node(false);
    for (int i = 0; i < steps; i++)
        step(root_);
    return TreeRedraw::nothing;
}

TreeRedraw TreeScreen::up()
{
    return move(monter, 1);
}

TreeRedraw TreeScreen::down()
{
    return move(descendre, 1);
}

TreeRedraw TreeScreen::four_up()
{
    return move(monter, steps_of_a_page);
}

TreeRedraw TreeScreen::four_down()
{
    return move(descendre, steps_of_a_page);
}

TreeRedraw TreeScreen::to_root()
{
    return move([](node* root) { pcour = root; }, 1);
}

TreeRedraw TreeScreen::to_parent()
{
    if (pcour == proot) return TreeRedraw::nothing;
    if (pcour != root_) return move([](node*) { pcour = pcour->parent; }, 1);
    const int enclosing = enclosing_subtree(*root_);
    return enclosing < 0 ? TreeRedraw::nothing : leave(enclosing);
}

TreeRedraw TreeScreen::into_subtree()
{
    if (pcour->leaf() || pcour->expanded()) return TreeRedraw::nothing;
    const int index = subtree_index(*pcour);
    return index < 0 ? TreeRedraw::nothing : leave(index);
}

// ---- beyond the tree --------------------------------------------------------------------------------------

namespace {

bool other_ensembles_are_empty(int ens)
{
    for (int other = 0; other < nb_ens; other++)
        if (other != ens && !members(other).empty()) return false;
    return true;
}

} // namespace

// The ensemble gets the species selected so far; the selection goes on.
TreeRedraw TreeScreen::run_on_stored_selection(void (*command)())
{
    if (nb_retenu > max_ensemble_species) return warn_too_many();
    if (nb_retenu == 0 && other_ensembles_are_empty(ens_))
        return warn("You must select at least one species");
    chercher_specie_retenue();
    set_members(ens_, working_list());
    command();
    return TreeRedraw::screen;
}

TreeRedraw TreeScreen::write_outputs()
{
    if (nb_retenu < 2) return warn("You must select at least two species");
    return run_on_stored_selection([] { write_file_kel_ali(); });
}

TreeRedraw TreeScreen::write_groups()
{
    write_file_nom();
    return TreeRedraw::tree;
}

TreeRedraw TreeScreen::window_options()
{
    view_root_.reset(); // the whole tree is scaled anew
    choice_option_window(program_title);
    adjust_frame();
    view_root_.emplace(*root_);
    forget_scrolling();
    return TreeRedraw::screen;
}

TreeRedraw TreeScreen::colour_all_groups()
{
    change_color_all_groupe();
    return TreeRedraw::screen;
}

TreeRedraw TreeScreen::colour_leaves()
{
    change_color_groupe(*root_, ens_);
    return TreeRedraw::screen;
}

TreeRedraw TreeScreen::choose_colours()
{
    choice_file_COL();
    return TreeRedraw::tree;
}

TreeRedraw TreeScreen::split_bacteria()
{
    return ens_ == 0 && nb_retenu == 0 ? leave(automatic_selection) : TreeRedraw::nothing;
}

TreeRedraw TreeScreen::other_alignment()
{
    if (verif_sauvegarde() == ok &&
        confirme("Do you want to load another file?", other_alignment_line) == answer_yes)
        return leave(load_another);
    return TreeRedraw::screen;
}

TreeRedraw TreeScreen::quit()
{
    if (verif_sauvegarde() == ok) confirme_fin_prog(quit_line);
    return TreeRedraw::screen;
}

} // namespace kq
