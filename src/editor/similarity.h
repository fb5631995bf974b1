// screen: the similarity search: where a short pattern fits best in a row, gaps put in until it does, and
// which species hold it.
//
// The pattern and the hits are in editor/similarity_hits.h. The "top row" is the row on the first screen row,
// the consensus of a collapsed ensemble included.
#pragma once

#include "editor/redraw.h"
#include "editor/similarity_hits.h"

#include <string_view>

namespace kq {

enum SimilarityMode : int {
    show_hits = 0,       // in a box; "," and "." there apply the best one
    apply_clear_hit = 1, // without asking when the best hit right of the cursor is near or has no rival
    rank_only = 2,
};

// Searches the pattern in a row (at most nb_nuc_tot characters) and ranks its places. Applying a hit puts as
// many "*" in at the cursor as there are columns from there to the hit; `shift` 1 then moves the cursor right
// past them. `window`: whole_row, or start positions around the cursor only (see search_row). `suffix` stands
// after the pattern in the box. After a box the editor's screen is drawn again.
// Deliberate: with apply_clear_hit nothing happens and nothing is shown when the best hit is at the cursor or
// left of it.
void calcul_similitude(std::string_view row, int mode, int shift, int window, std::string_view suffix);

// Moves the cursor to the next gap of the top row that is none of the cursor row, and aligns the residues
// found there with the top row; -1 when nothing moved or the end was reached, else 0. The column after the
// cursor is the first one looked at.
int aligne_proche();

// Lets the user type the pattern, in upper case. It is proposed from a row at the cursor, at most |max|
// residues: 0 = the cursor row, 1 = the top row, -1 = the pattern as it is. 0, or -1 on ESCAPE, which leaves
// the pattern as it was.
int input_sub_seq(int max, int source);

// Ranks the species by their best match with a pattern and shows them; `scope` as in search_species,
// `species` is left out. from_fragment 0: the pattern is typed. 1: it is taken from the row `species` at a
// position that the user gives, and the user may select the best ones. Returns how many were newly selected;
// whoever calls it draws the screen again.
int simil_tous(int from_fragment, int species, int scope);

// ---- keys of the editor

// Seeks the residues under the cursor, at most `residues` of them, in the top row.
Redraw seek_in_top_row(int residues, int mode, int shift, int window);
Redraw align_once_key();  // for key A see editor/align_all.h
Redraw gere_similitude(); // the menu of searches

} // namespace kq
