// screen: the list of the species of a group, or of a search.
#include "taxonomy/species_screen.h"

#include "core/edit.h"
#include "core/store.h"
#include "raster/grx.h"
#include "screen/dialogs.h"
#include "screen/help.h"
#include "screen/strings.h"
#include "screen/text.h"
#include "taxonomy/frame.h"
#include "taxonomy/group_assignment.h"
#include "taxonomy/group_colours.h"
#include "taxonomy/group_moves.h"
#include "taxonomy/selection.h"
#include "taxonomy/species_info.h"
#include "taxonomy/species_name.h"
#include "taxonomy/tree_walk.h"

#include <algorithm>
#include <cassert>
#include <string>
#include <string_view>

namespace kq {

namespace {

constexpr int full_columns = 2, column_width = 38;
constexpr int first_list_line = 3, first_list_column = 3;
constexpr int lines_around_list = 4; // frame, title, legend, frame
constexpr int entries_of_a_page = 10;
constexpr int species_of_a_block = 100;

// Where the fields of an entry begin, from its first cell.
constexpr int name_column = 4, length_column = 30, entry_width = 37;

// Four characters.
std::string status_field(int species)
{
    const auto s = static_cast<std::size_t>(species);
    if (destroy[s]) return "del ";
    if (mask[s] != 0) return "mask";
    if (retenu[s] != -1) return text_format("%4d", retenu[s]);
    return new_est[s] != 0 ? "new " : "    ";
}

std::string name_field(int species)
{
    const bool elsewhere = drap_select[static_cast<std::size_t>(species)] == 0;
    const std::string name(identifier(species));
    return padded(text_format("%c%.25s", elsewhere ? '+' : ' ', name.c_str()), length_column - name_column);
}

std::string length_field(int species)
{
    return text_format(" (%3d%%)", pc_len[static_cast<std::size_t>(species)]);
}

void check_invariants()
{
#ifdef KQ_INVARIANTS
    assert(selection_error().empty());
#endif
}

} // namespace

void choice_specie(int group)
{
    if (nb_spec_gro > 0) SpeciesScreen(group).run();
}

SpeciesScreen::SpeciesScreen(int group)
    : group_(group)
    , list_{.rows = std::max(1, _nb_line - lines_around_list),
            .columns = first_list_column + column_width + entry_width - 1 < _nb_col ? full_columns : 1}
{
}

void SpeciesScreen::run()
{
    draw(SpeciesRedraw::screen);
    while (!left_) {
        const auto* binding = species_keys.find(GrKeyRead());
        if (!binding) continue;
        color_case_specie(list_.current, false);
        const SpeciesRedraw redraw = binding->run(*this);
        check_invariants();
        if (!left_) draw(redraw);
    }
}

int SpeciesScreen::current_species() const
{
    return cor[static_cast<std::size_t>(list_.current)];
}

// The list, as moves between groups take it.
int SpeciesScreen::list_of_moves() const
{
    return group_ >= 0 ? group_ : list_without_group;
}

// After a change of the list.
SpeciesRedraw SpeciesScreen::to_top()
{
    if (nb_spec_gro == 0) return leave();
    list_.current = list_.dec_obj = 0;
    return SpeciesRedraw::screen;
}

SpeciesRedraw SpeciesScreen::leave()
{
    left_ = true;
    return SpeciesRedraw::cursor;
}

SpeciesRedraw SpeciesScreen::help()
{
    _aide("KQ1", 3, 3, 28, 78);
    return SpeciesRedraw::screen;
}

// ---- drawing ----------------------------------------------------------------------------------------------

void SpeciesScreen::draw(SpeciesRedraw redraw)
{
    if (redraw == SpeciesRedraw::screen) affich_choice_specie();
    if (redraw >= SpeciesRedraw::list) affich_liste_specie();
    if (redraw == SpeciesRedraw::ranks) affich_liste_position();
    color_case_specie(list_.current, true);
}

void SpeciesScreen::affich_choice_specie() const
{
    const std::string title = group_ > 0 ? text_format("List of species in group %s", groupe[group_])
                                         : "List of species with specific characters";
    const int title_column = std::clamp(_nb_col - static_cast<int>(title.size()), 3, 20);
    _setbgcolor(color::black);
    window_hp(1, 1, _nb_line, _nb_col, color::light_grey);
    outtext_inside(2, title_column, color::magenta, title);
    outtext_inside(_nb_line - 1, 3, color::light_cyan,
                   group_ == list_without_group
                       ? "F1:Help F2:All F5:Neighboring species  ESCAPE:Return"
                       : "F1:Help F2:All F3:Other F5:Neighboring species  ESCAPE:Return");
    _settextwindow(first_list_line, first_list_column, _nb_line - 2, _nb_col - 2);
}

void SpeciesScreen::affich_liste_specie() const
{
    for (int entry = list_.dec_obj; entry < list_.end_of_view(); entry++) {
        if (entry < nb_spec_gro)
            color_case_specie(entry, false);
        else
            write_entry(entry, std::string(entry_width, ' '));
    }
}

void SpeciesScreen::affich_liste_position() const
{
    for (int entry = list_.dec_obj; entry < std::min(list_.end_of_view(), nb_spec_gro); entry++) {
        const int species = cor[static_cast<std::size_t>(entry)];
        select_color_groupe(no_groupe[static_cast<std::size_t>(species)]);
        write_entry(entry, status_field(species));
    }
}

void SpeciesScreen::color_case_specie(int entry, bool on) const
{
    const int species = cor[static_cast<std::size_t>(entry)];
    const int group = no_groupe[static_cast<std::size_t>(species)];
    select_color_groupe(group);
    select_bk_color_groupe(group, on);
    write_entry(entry, status_field(species) + name_field(species) + length_field(species));
    _setbgcolor(color::black);
}

// Writes at the entry's place, if it is shown, what the window has room for.
void SpeciesScreen::write_entry(int entry, std::string_view text) const
{
    if (entry < list_.dec_obj || entry >= list_.end_of_view()) return;
    const int offset = entry - list_.dec_obj;
    const int line = offset % list_.rows + 1, column = offset / list_.rows * column_width + 1;
    const int room = std::max(0, y2_win - y1_win + 2 - column);
    _settextposition(line, column);
    _outtext(text.substr(0, static_cast<std::size_t>(room)));
}

// ---- moving -----------------------------------------------------------------------------------------------

SpeciesRedraw SpeciesScreen::move(int entries)
{
    const int first_column = list_.dec_spec();
    list_.move(entries, nb_spec_gro);
    return list_.dec_spec() == first_column ? SpeciesRedraw::cursor : SpeciesRedraw::list;
}

SpeciesRedraw SpeciesScreen::up()
{
    return move(-1);
}

SpeciesRedraw SpeciesScreen::down()
{
    return move(1);
}

SpeciesRedraw SpeciesScreen::page_up()
{
    return move(-entries_of_a_page);
}

SpeciesRedraw SpeciesScreen::page_down()
{
    return move(entries_of_a_page);
}

SpeciesRedraw SpeciesScreen::left()
{
    return move(-list_.rows);
}

SpeciesRedraw SpeciesScreen::right()
{
    return move(list_.rows);
}

SpeciesRedraw SpeciesScreen::next_of_another_ensemble()
{
    const auto rest = working_list().subspan(static_cast<std::size_t>(list_.current) + 1);
    const auto found = std::ranges::find_if(
        rest, [](int species) { return drap_select[static_cast<std::size_t>(species)] == 0; });
    if (found == rest.end()) return SpeciesRedraw::cursor;
    list_.current += 1 + static_cast<int>(found - rest.begin());
    // Its column is the second one shown, where there are two.
    list_.dec_obj = std::max(0, list_.current / list_.rows - (list_.columns - 1)) * list_.rows;
    return SpeciesRedraw::list;
}

// ---- selecting --------------------------------------------------------------------------------------------

SpeciesRedraw SpeciesScreen::toggle_selection()
{
    const int selected_before = nb_retenu;
    const int species = current_species();
    toggle_many({&species, 1});
    const auto redraw = nb_retenu < selected_before ? SpeciesRedraw::ranks : SpeciesRedraw::cursor;
    color_case_specie(list_.current, false);
    return std::max(redraw, move(1));
}

SpeciesRedraw SpeciesScreen::toggle_hundred()
{
    const auto rest = working_list().subspan(static_cast<std::size_t>(list_.current));
    toggle_many(rest.first(std::min<std::size_t>(species_of_a_block, rest.size())));
    return leave();
}

SpeciesRedraw SpeciesScreen::select_all()
{
    retenir_all_specie(retain_all);
    return leave();
}

SpeciesRedraw SpeciesScreen::select_free()
{
    retenir_all_specie(retain_free);
    return leave();
}

// ---- the current species ----------------------------------------------------------------------------------

SpeciesRedraw SpeciesScreen::toggle_mask()
{
    const int species = current_species();
    const bool masked = mask[static_cast<std::size_t>(species)] == 0;
    if (masked) deselect_species(species);
    set_masked(species, masked);
    mark_changed();
    return SpeciesRedraw::ranks;
}

SpeciesRedraw SpeciesScreen::information()
{
    if (affich_info(current_species(), list_of_moves()) == 0 || group_ < 0) return SpeciesRedraw::screen;
    if (nb_spec_gro > 0) list_species_of_group(group_);
    return to_top();
}

SpeciesRedraw SpeciesScreen::rename()
{
    return change_species_name(current_species()) == ok ? choose_group_by_hand() : SpeciesRedraw::screen;
}

SpeciesRedraw SpeciesScreen::choose_group_by_hand()
{
    if (change_groupe(current_species(), list_of_moves(), MoveHow::chosen) != ok || group_ < 0)
        return SpeciesRedraw::screen;
    if (nb_spec_gro > 0) {
        if (group_ == cupboard())
            list_species_of_group(group_);
        else
            collect_species_below(*pcour);
    }
    return to_top();
}

SpeciesRedraw SpeciesScreen::assign_group()
{
    switch (change_groupe_auto(current_species(), list_of_moves(), AutoMode::interactive)) {
    case auto_done:
        return to_top();
    case auto_group_empty:
        return leave();
    default:
        return SpeciesRedraw::screen;
    }
}

SpeciesRedraw SpeciesScreen::assign_groups_of_all()
{
    const int listed = nb_spec_gro;
    affich_progress("WORK IN PROGRESS", 10, 30, 52, color::yellow);
    const int assigned = change_groupe_auto_list(list_of_moves());
    affich_avert(text_format("%d species out of %d have been automatically reaffacted", assigned, listed),
                 10);
    return leave();
}

SpeciesRedraw SpeciesScreen::select_neighbours(void (*search)(int species))
{
    const int selected_before = nb_retenu;
    search(current_species());
    if (nb_retenu > selected_before) select_species(current_species());
    return SpeciesRedraw::screen;
}

SpeciesRedraw SpeciesScreen::destroy_current(int (*destroy_species)(int,
                                                                    const std::function<void()>& draw_again))
{
    const int species = current_species();
    if (destroy[static_cast<std::size_t>(species)]) return SpeciesRedraw::cursor;
    if (destroy_species(species, [this] { draw(SpeciesRedraw::screen); }) == ok) deselect_species(species);
    return SpeciesRedraw::screen;
}

} // namespace kq
