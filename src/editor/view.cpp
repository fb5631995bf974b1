// model: what the editor shows and where its cursor stands.
#include "editor/view.h"

#include "core/columns.h"
#include "core/consensus.h"
#include "core/store.h"
#include "editor/shown_columns.h"
#include "screen/strings.h"
#include "screen/text.h"

#include <algorithm>

namespace kq {

constinit int prem_ens = 0, prem_spec = 0;
constinit int ens_curs = 0, spec_curs = 0;
constinit int ligne_curs = 1;
constinit int colonne_curs = 1;
constinit int dec_pos_curs = 0;
constinit int pos_curs = 0;
constinit int nb_spec_affich = 0;
constinit int kq_mode = 0;
constinit int pos_deb = -1, pos_fin = -1;

namespace {

constexpr int columns_left_of_area = 30; // identifiers, cursor mark, and the blank column at the right edge
constexpr int lines_below_area = 2;

int rows_of(int ensemble)
{
    const int count = nb_spec_ens[static_cast<std::size_t>(ensemble)];
    return collapsed(ensemble) ? std::min(count, 1) : count;
}

} // namespace

int area_width()
{
    return std::max(_nb_col - columns_left_of_area, 0);
}

int shown_rows()
{
    return std::min(_nb_line - lines_below_area, nb_spec_affich);
}

DisplayRow next_row(DisplayRow row)
{
    if (row.index + 1 < rows_of(row.ensemble)) return {row.ensemble, row.index + 1};
    for (int step = 1; step <= nb_ens; step++) {
        const int ensemble = (row.ensemble + step) % nb_ens;
        if (rows_of(ensemble) > 0) return {ensemble, 0};
    }
    return row;
}

DisplayRow previous_row(DisplayRow row)
{
    const int before = std::min(row.index, rows_of(row.ensemble));
    if (before > 0) return {row.ensemble, before - 1};
    for (int step = 1; step <= nb_ens; step++) {
        const int ensemble = (row.ensemble - step + nb_ens) % nb_ens;
        if (rows_of(ensemble) > 0) return {ensemble, rows_of(ensemble) - 1};
    }
    return row;
}

DisplayRow rows_away(DisplayRow row, int n)
{
    for (; n > 0; n--)
        row = next_row(row);
    for (; n < 0; n++)
        row = previous_row(row);
    return row;
}

DisplayRow first_row()
{
    return rows_of(0) > 0 ? DisplayRow{} : next_row({});
}

int count_display_rows()
{
    int count = 0;
    for (int ensemble = 0; ensemble < nb_ens; ensemble++)
        count += rows_of(ensemble);
    return count;
}

bool is_display_row(DisplayRow row)
{
    return row.ensemble >= 0 && row.ensemble < nb_ens && row.index >= 0 && row.index < rows_of(row.ensemble);
}

bool cursor_on_consensus()
{
    return is_display_row(cursor_row()) && collapsed(ens_curs);
}

int cursor_species()
{
    if (!is_display_row(cursor_row()) || collapsed(ens_curs)) return -1;
    return cor_ens[static_cast<std::size_t>(ens_curs)][static_cast<std::size_t>(spec_curs)];
}

RowText row_text(DisplayRow row)
{
    if (!is_display_row(row)) return {};
    const auto e = static_cast<std::size_t>(row.ensemble);
    const auto columns = static_cast<std::size_t>(nb_nuc_tot);
    if (collapsed(row.ensemble)) {
        if (!seq_cons[e] || !val_seq_cons[e]) return {};
        return {{seq_cons[e], columns}, val_seq_cons[e]};
    }
    const auto text = kq::row(cor_ens[e][static_cast<std::size_t>(row.index)]);
    return {{text.data(), std::min(text.size(), columns)}, nullptr};
}

void view_reset()
{
    prem_ens = prem_spec = ens_curs = spec_curs = 0;
    ligne_curs = colonne_curs = 1;
    dec_pos_curs = pos_curs = 0;
    nb_spec_affich = 0;
    kq_mode = 0;
    pos_deb = pos_fin = -1;
}

std::string view_error()
{
    if (nb_spec_affich != count_display_rows())
        return text_format("%d display rows are counted as %d", count_display_rows(), nb_spec_affich);
    if (nb_spec_affich > 0) {
        if (!is_display_row(top_row())) return text_format("no row %d.%d at the top", prem_ens, prem_spec);
        if (!is_display_row(cursor_row()))
            return text_format("no row %d.%d under the cursor", ens_curs, spec_curs);
        if (ligne_curs < 1 || ligne_curs > shown_rows())
            return text_format("the cursor stands on row %d of %d", ligne_curs, shown_rows());
        if (rows_away(top_row(), ligne_curs - 1) != cursor_row())
            return text_format("row %d.%d is not on screen row %d", ens_curs, spec_curs, ligne_curs);
    }
    const int position = cursor_position();
    if (dec_pos_curs < 0 || pos_curs < 0 || position >= nb_nuc_tot)
        return text_format("the cursor is at %d + %d of %d", dec_pos_curs, pos_curs, nb_nuc_tot);
    if (delcom[position] != 0) return text_format("the cursor is at the hidden position %d", position);
    if (colonne_curs != shown_between(dec_pos_curs, position) + 1)
        return text_format("position %d is not in column %d", position, colonne_curs);
    if (colonne_curs > std::max(area_width(), 1))
        return text_format("column %d is beyond %d", colonne_curs, area_width());
    return "";
}

} // namespace kq
