// model: what the editor shows and where its cursor stands.
#pragma once

namespace kq {

extern int prem_ens, prem_spec; // ensemble, and index within it, of the row on screen row 1
extern int ens_curs, spec_curs; // the cursor row, likewise
extern int ligne_curs;          // screen row of the cursor, 1.._nb_line - 2
extern int colonne_curs;        // column of the cursor inside the sequence area, from 1
extern int dec_pos_curs;        // alignment position (0-based) in the first column of the area
extern int pos_curs;            // offset of the cursor from it
extern int nb_spec_affich;      // display rows: members of shown ensembles + 1 for each collapsed one
extern int kq_mode;             // 0 normal, 1 EST mode, 2 region selection
extern int pos_deb, pos_fin;    // selected region, first and last position; -1 = unset

inline int cursor_position()
{
    return dec_pos_curs + pos_curs;
}
int area_width(); // columns of the sequence area that are drawn: _nb_col - 30
int shown_rows(); // the smaller of _nb_line - 2 and nb_spec_affich

// A display row: an ensemble and an index within it (0 for a collapsed ensemble).
struct DisplayRow {
    int ensemble = 0, index = 0;
    bool operator==(const DisplayRow&) const = default;
};
// The neighbours on the circular list of display rows; empty ensembles have none and are skipped.
DisplayRow next_row(DisplayRow row);
DisplayRow previous_row(DisplayRow row);
int count_display_rows(); // what nb_spec_affich has to be
void view_reset();

} // namespace kq
