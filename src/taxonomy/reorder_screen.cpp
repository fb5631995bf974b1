// screen: reordering the selected species by numbers typed beside them.
#include "taxonomy/reorder_screen.h"

#include "core/store.h"
#include "raster/grx.h"
#include "screen/dialogs.h"
#include "screen/help.h"
#include "screen/strings.h"
#include "screen/text.h"
#include "taxonomy/group_colours.h"
#include "taxonomy/group_moves.h"
#include "taxonomy/selection.h"
#include "taxonomy/species_info.h"
#include "taxonomy/species_order.h"

#include <algorithm>
#include <cstdio>
#include <string_view>

namespace kq {

namespace {

constexpr int full_rows = 26, full_columns = 2, column_width = 37;
constexpr int first_list_line = 3, first_list_column = 3, columns_for_all = 78;
constexpr int lines_around_list = 4; // frame, title, legend, frame
constexpr int entries_of_a_page = 10;

} // namespace

TreeRedraw gere_reorder_specie_retenue()
{
    if (nb_retenu == 0) {
        affich_avert("You have not yet selected any species", 7);
        return TreeRedraw::tree;
    }
    return ReorderScreen().run();
}

ReorderScreen::ReorderScreen()
    : list_{.rows = std::clamp(_nb_line - lines_around_list, 1, full_rows),
            .columns = _nb_col >= columns_for_all ? full_columns : 1}
{
}

TreeRedraw ReorderScreen::run()
{
    begin();
    affich_screen();
    while (!closed_) {
        affich_list();
        const int pressed = GrKeyRead();
        if (const auto* binding = reorder_keys.find(pressed)) (this->*binding->run)(pressed);
    }
    return TreeRedraw::screen;
}

// The list is the selection by rank, and nothing is typed.
void ReorderScreen::begin()
{
    chercher_specie_retenue();
    new_order_.assign(static_cast<std::size_t>(nb_spec_gro), no_number);
    list_.current = std::clamp(list_.current, 0, std::max(0, nb_spec_gro - 1));
    list_.dec_obj = std::min(list_.dec_obj, list_.current / list_.rows * list_.rows);
}

// ---- drawing ----------------------------------------------------------------------------------------------

void ReorderScreen::affich_screen() const
{
    _setbgcolor(color::black);
    window_hp(1, 1, _nb_line, _nb_col, color::light_grey);
    outtext_inside(2, std::min(24, std::max(3, _nb_col - 25)), color::magenta, "List of species selected");
    outtext_inside(_nb_line - 1, 3, color::light_cyan,
                   "F1:Help F2:Reorder F3:Reorder and return ESCAPE:Return without reordering");
}

void ReorderScreen::affich_list() const
{
    const int last_line = first_list_line + list_.rows - 1;
    const int last_column = std::min(columns_for_all, _nb_col - 1);
    _settextwindow(first_list_line, first_list_column, last_line, last_column);
    for (int entry = list_.dec_obj; entry < list_.end_of_view(); entry++)
        affich_entry(entry);
}

void ReorderScreen::affich_entry(int entry) const
{
    const int offset = entry - list_.dec_obj;
    const int line = offset % list_.rows + 1, column = offset / list_.rows * column_width + 2;
    const int room = std::min(column_width, y2_win - y1_win - column + 2);
    if (room <= 0) return;
    const auto write = [&](int from, const std::string& text) {
        _settextposition(line, column + from);
        _outtext(std::string_view(text).substr(0, static_cast<std::size_t>(std::max(0, room - from))));
    };
    if (entry >= nb_spec_gro) {
        _setbgcolor(color::black);
        return write(0, std::string(column_width, ' '));
    }
    const int species = cor[static_cast<std::size_t>(entry)];
    const int group = no_groupe[static_cast<std::size_t>(species)];
    const int number = new_order_[static_cast<std::size_t>(entry)];
    const std::string typed = number == no_number ? "    " : text_format("%4d", number);
    const std::string name(identifier(species));
    const std::string shown = typed + text_format(" [%4d] %.24s ", entry + 1, name.c_str());
    select_color_groupe(group);
    select_bk_color_groupe(group, entry == list_.current);
    write(0, shown);
    _setbgcolor(color::black);
    // What a longer entry left behind.
    write(static_cast<int>(shown.size()), std::string(column_width, ' '));
}

// ---- moving -----------------------------------------------------------------------------------------------

void ReorderScreen::up(int)
{
    list_.move(-1, nb_spec_gro);
}

void ReorderScreen::down(int)
{
    list_.move(1, nb_spec_gro);
}

void ReorderScreen::left(int)
{
    list_.move(-list_.rows, nb_spec_gro);
}

void ReorderScreen::right(int)
{
    list_.move(list_.rows, nb_spec_gro);
}

void ReorderScreen::page_up(int)
{
    list_.move(-entries_of_a_page, nb_spec_gro);
}

void ReorderScreen::page_down(int)
{
    list_.move(entries_of_a_page, nb_spec_gro);
}

// ---- numbers ----------------------------------------------------------------------------------------------

void ReorderScreen::digit(int key)
{
    int& number = new_order_[static_cast<std::size_t>(list_.current)];
    number = (number == no_number ? 0 : number * 10) + (key - '0');
    if (number > nb_retenu) {
        ring_bell();
        number = nb_retenu;
    }
}

void ReorderScreen::erase_digit(int)
{
    int& number = new_order_[static_cast<std::size_t>(list_.current)];
    number = number < 10 ? no_number : number / 10;
}

// Applies the typed numbers to the selection: 0, or -1 when no species remains.
int ReorderScreen::order_specie()
{
    std::vector<int> ranked;
    for (const int entry : reordered(new_order_))
        ranked.push_back(cor[static_cast<std::size_t>(entry)]);
    set_selection(ranked);
    chercher_specie_retenue();
    return nb_retenu == 0 ? -1 : 0;
}

void ReorderScreen::information(int)
{
    affich_info(cor[static_cast<std::size_t>(list_.current)], list_without_group);
    affich_screen();
}

void ReorderScreen::help(int)
{
    _aide("KQ2", 3, 3, _nb_line - 2, 78);
    affich_screen();
}

void ReorderScreen::apply(int)
{
    if (order_specie() != 0)
        closed_ = true;
    else
        begin();
}

void ReorderScreen::apply_and_return(int)
{
    order_specie();
    closed_ = true;
}

void ReorderScreen::leave(int)
{
    closed_ = true;
}

} // namespace kq
