// model: what the editor shows and where its cursor stands.
#pragma once

#include <string>
#include <string_view>

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
int area_width(); // columns of the sequence area that are drawn: _nb_col - 30, never below 0
int shown_rows(); // the smaller of _nb_line - 2 and nb_spec_affich

// A display row: an ensemble and an index within it (0 for a collapsed ensemble).
struct DisplayRow {
    int ensemble = 0, index = 0;
    bool operator==(const DisplayRow&) const = default;
};
inline DisplayRow top_row()
{
    return {prem_ens, prem_spec};
}
inline DisplayRow cursor_row()
{
    return {ens_curs, spec_curs};
}
inline void set_top_row(DisplayRow row)
{
    prem_ens = row.ensemble;
    prem_spec = row.index;
}
inline void set_cursor_row(DisplayRow row)
{
    ens_curs = row.ensemble;
    spec_curs = row.index;
}

// The neighbours on the circular list of display rows; empty ensembles have none and are skipped. Without
// any display row they return what they were given.
DisplayRow next_row(DisplayRow row);
DisplayRow previous_row(DisplayRow row);
DisplayRow rows_away(DisplayRow row, int n); // n rows forward, or back when n is negative
DisplayRow first_row();                      // of the first ensemble that has rows
int count_display_rows();                    // what nb_spec_affich has to be
bool is_display_row(DisplayRow row);

// The cursor's species, or -1 on a collapsed ensemble and when there are no rows.
int cursor_species();
bool cursor_on_consensus(); // on the row of a collapsed ensemble

// The characters of a display row, read as blanks beyond their end: a species' text, or the consensus of a
// collapsed ensemble with its levels.
struct RowText {
    std::string_view text;                 // at most nb_nuc_tot characters
    const unsigned char* levels = nullptr; // nb_nuc_tot levels 0..9; null for a species row

    char at(int position) const
    {
        const auto p = static_cast<std::size_t>(position);
        return p < text.size() ? text[p] : ' ';
    }
    int level(int position) const { return levels ? levels[position] : 0; }
};
RowText row_text(DisplayRow row);

void view_reset();
// Empty, or the first broken invariant of the cursor and the scrolling state (after a move or an edit).
std::string view_error();

} // namespace kq
