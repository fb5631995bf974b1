// screen: drawing the alignment: identifiers, coloured sequence area, cursor, the two lines below.
//
//   rows 1 .. _nb_line - 2   columns 1..28 identifiers, 29 the cursor's mark "<", from 30 on the
//                            sequence area
//   row _nb_line - 1         from column 1 on the cursor's numbers, from column 30 on the consensus
//                            line, two headings, the differences from the master, or the region
//   row _nb_line             the key menu of the current mode
//
// Column k of the area is text column 29 + k; columns 1 to area_width() hold residues, the one after them is
// blank. Drawing what is there already costs no pixels (screen/text.h).
#pragma once

#include "editor/view.h"

#include <span>

namespace kq {

// The menu line, the identifiers and the sequence area: the whole screen.
void affich_menu_affich_seq();
void affich_all_species();
// The sequence area from alignment position dec_pos_curs + offset to the right edge, and the line under it.
void affich_all_seq(int offset);

// One row of the area from column first_column on. `shown` holds the positions to draw, at most as many as
// there are columns left; `reference` is the top row, whose characters become dashes, or null for the top row
// itself.
void affich_one_seq(int row, int first_column, const RowText* reference, const RowText& sequence,
                    std::span<const int> shown);
// The same for a collapsed ensemble, coloured at the level of each position.
void affich_one_seq_cons(int row, int first_column, const RowText* reference, const RowText& sequence,
                         std::span<const int> shown);

// Text and background colour of a residue: in a species row, and in a collapsed row at a level 0..9. A
// character without a code is light grey on black.
void choice_char_color(char c);
void choice_char_color_cons(char c, int level);

// The line under the sequence area from column first_column on, which shows dec_pos_curs + offset.
void affich_penultimate_line(int first_column, int offset);
// Draws the cursor (on) or removes it.
void affich_nuc_site(bool on);
// The cursor's position and residue count at the left of the line under the area, and what they take of it
// with a blank behind them.
inline constexpr int cursor_numbers_width = 14;
void affich_cursor_numbers();
// The same with the cursor's ensemble and species where there is no consensus line.
void affich_status();

} // namespace kq
