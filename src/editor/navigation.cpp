// screen: moving the cursor and scrolling.
#include "editor/navigation.h"

#include "core/columns.h"
#include "core/consensus.h"
#include "core/options.h"
#include "core/store.h"
#include "editor/shown_columns.h"
#include "editor/view.h"
#include "screen/process_end.h"

#include <algorithm>

namespace kq {

namespace {

// A window too narrow for the area still has one column to hold the cursor.
int cursor_columns()
{
    return std::max(area_width(), 1);
}

int scroll_step()
{
    return std::min(10, cursor_columns());
}

void set_cursor_position(int position)
{
    pos_curs = position - dec_pos_curs;
    colonne_curs = shown_between(dec_pos_curs, position) + 1;
}

} // namespace

// ---- hidden columns ---------------------------------------------------------------------------------------

int cherche_delcom()
{
    const int uncovered = recompute_hidden(opt_nogap != 0, std::min(cursor_position(), nb_nuc_tot - 1));
    if (nb_nuc == 0) erreur_fatale("There are no more nucleotides");
    return uncovered;
}

void init_param()
{
    cherche_delcom();
    if (!is_display_row(top_row())) set_top_row(first_row());
    ligne_curs = 1;
    set_cursor_row(top_row());
    goto_debut();
}

void reactualise(int e)
{
    if (e == -1)
        for (int ensemble = 0; ensemble < nb_ens; ensemble++)
            compute_consensus(ensemble);
    else
        compute_consensus(e);
    compute_ligne_consensus();
    cherche_delcom();

    const int position = next_shown(cursor_position());
    if (position >= nb_nuc_tot) {
        goto_fin();
        return;
    }
    set_cursor_position(position);
    reactualise_colonne();
}

Redraw reactualise_colonne()
{
    const int first = dec_pos_curs, position = cursor_position();
    int scrolled = 0; // shown positions to scroll by, to the right when positive
    for (int column = colonne_curs; column > cursor_columns(); column -= scroll_step())
        scrolled += scroll_step();
    for (int column = colonne_curs; column < 1; column += scroll_step())
        scrolled -= scroll_step();
    if (scrolled > 0) dec_pos_curs = shown_away(next_shown(first), scrolled);
    if (scrolled < 0) dec_pos_curs = std::max(shown_away(first, scrolled), 0);
    set_cursor_position(position);
    return dec_pos_curs == first ? redraw_none : redraw_sequences;
}

void settle_cursor()
{
    if (nb_spec_affich > 0) {
        if (!is_display_row(top_row())) set_top_row(first_row());
        const int beyond = std::max(ligne_curs - shown_rows(), 0);
        deplace_specie(beyond);
        ligne_curs = std::max(ligne_curs - beyond, 1);
        set_cursor_row(rows_away(top_row(), ligne_curs - 1));
    }
    reactualise_colonne();
}

// ---- rows -------------------------------------------------------------------------------------------------

Redraw deplace_curseur_bas(int n)
{
    DisplayRow row = cursor_row();
    for (; n > 0 && ligne_curs < shown_rows(); n--, ligne_curs++)
        row = next_row(row);
    set_cursor_row(row);
    if (n <= 0) return redraw_none;
    deplace_specie(n);
    set_cursor_row(rows_away(top_row(), ligne_curs - 1));
    return redraw_all_rows;
}

Redraw deplace_curseur_haut(int n)
{
    DisplayRow row = cursor_row();
    for (; n > 0 && ligne_curs > 1; n--, ligne_curs--)
        row = previous_row(row);
    set_cursor_row(row);
    if (n <= 0) return redraw_none;
    deplace_specie(-n);
    set_cursor_row(top_row());
    return redraw_all_rows;
}

void deplace_specie(int n)
{
    set_top_row(rows_away(top_row(), n));
}

Redraw deplace_only_species(int direction)
{
    deplace_specie(direction);
    set_cursor_row(rows_away(cursor_row(), direction));
    return redraw_all_rows;
}

Redraw magic_move()
{
    if (ligne_curs <= 1) return redraw_none;
    ligne_curs = 1;
    set_cursor_row(top_row());
    return redraw_all_rows;
}

// ---- positions --------------------------------------------------------------------------------------------

Redraw deplace_site_droite(int n)
{
    const int position = shown_away(cursor_position(), n);
    if (position >= nb_nuc_tot) return goto_fin();
    pos_curs = position - dec_pos_curs;
    colonne_curs += n;
    return reactualise_colonne();
}

Redraw deplace_site_gauche(int n)
{
    const int position = shown_away(cursor_position(), -n);
    if (previous_shown(position - 1) < 0) return goto_debut();
    pos_curs = position - dec_pos_curs;
    colonne_curs -= n;
    return reactualise_colonne();
}

Redraw goto_debut()
{
    const bool scrolled = dec_pos_curs != 0;
    dec_pos_curs = 0;
    set_cursor_position(next_shown(0));
    return scrolled ? redraw_sequences : redraw_none;
}

Redraw goto_fin()
{
    const int before = dec_pos_curs;
    const int position = previous_shown(nb_nuc_tot - 1);
    int column = nb_nuc;
    while (column >= cursor_columns() && column > scroll_step())
        column -= scroll_step();
    dec_pos_curs = column == nb_nuc ? 0 : shown_away(position, 1 - column);
    set_cursor_position(position);
    return dec_pos_curs == before ? redraw_none : redraw_sequences;
}

void cherche_diff()
{
    if (ligne_curs == 1) return;
    const RowText top = row_text(top_row()), own = row_text(cursor_row());
    int steps = 1;
    int position = shown_away(cursor_position(), 1);
    while (position < nb_nuc_tot && top.at(position) == own.at(position)) {
        position = next_shown(position + 1);
        steps++;
    }
    if (position < nb_nuc_tot)
        deplace_site_droite(steps);
    else
        goto_fin();
}

} // namespace kq
