// screen: moving the cursor and scrolling. Nothing here draws: each move returns what has to be drawn again.
//
// Hidden positions never hold the cursor and take no column. The area scrolls sideways in steps of 10 shown
// positions (or of its width, when that is less), so that colonne_curs is always the number of shown
// positions from dec_pos_curs up to and including the cursor.
#pragma once

#include "editor/redraw.h"

namespace kq {

// ---- hidden columns ---------------------------------------------------------------------------------------

// Recomputes delcom and nb_nuc. Returns how many hidden positions at or before the cursor stopped being
// hidden minus how many became hidden. An alignment without a shown position is fatal.
int cherche_delcom();
// cherche_delcom, then the cursor to the top row and the first position.
void init_param();
// Brings what depends on the sequences up to date after a change: the consensus of ensemble e (of all when e
// is -1), the consensus line, the hidden columns; then the cursor moves right past hidden positions and back
// inside the area.
void reactualise(int e);
// Scrolls until the cursor's column lies inside the area.
Redraw reactualise_colonne();
// Makes the cursor's row, column and screen row agree again after rows went away or the window was resized; a
// row that is now below the screen is scrolled into it.
void settle_cursor();

// ---- rows -------------------------------------------------------------------------------------------------

Redraw deplace_curseur_bas(int n);
Redraw deplace_curseur_haut(int n);
// Moves the top row by n rows on the circular list; the cursor row is the caller's business.
void deplace_specie(int n);
// Scrolls by one row (1 = down the list, -1 = up), the cursor staying on its screen row.
Redraw deplace_only_species(int direction);
// The cursor to the top screen row.
Redraw magic_move();

// ---- positions --------------------------------------------------------------------------------------------

Redraw deplace_site_droite(int n);
Redraw deplace_site_gauche(int n);
Redraw goto_debut();
Redraw goto_fin();
// Moves to the next position where the cursor row differs from the top row, else to the last one. Nothing on
// the top row itself.
void cherche_diff();

} // namespace kq
