// screen: the commands that change the sequences: gaps in and out, columns opened, sequences shortened.
//
// Gap commands work on the cursor's species, or on every species of the collapsed ensemble under the cursor.
// Only "*" and blanks are ever deleted. Callers bring consensus and hidden columns up to date (reactualise)
// where nothing else is said.
#pragma once

#include "core/edit.h"
#include "editor/redraw.h"

namespace kq {

Rows target_rows(); // the rows that gap commands work on; an empty set when there is no row

// Inserts c (a blank or "*") at the cursor; 0, or -1 when the alignment cannot grow. A residue in the last
// position makes the alignment grow by one. The second form inserts as many of n as can be.
int add_char(char c);
int add_chars(char c, int n);
// Deletes the character at the cursor; 0, or -1 when a row has a residue there.
// Deliberate: both mark the alignment changed before they know that they can change it.
int suppr_char();
// suppr_char again and again until it refuses, in one step.
void suppr_all_chars();
// Makes the alignment longer by n blanks a row; 0, or -1 after a warning.
int allonge_seq(int n);
// Whether it was; warns of a refusal.
bool grown(Growth growth);

// Asks how many gap columns to open at the cursor in all other rows; brings everything up to date.
Redraw inser_star_all();
// Asks for a number of gaps to delete at the cursor and left of it.
void remove_gap_gauche();
// Deletes all gaps from the cursor to the end, when confirmed.
void remove_gap_droite();
// Deletes all gaps of the sequence, when confirmed; brings everything up to date.
void supprime_gap();
// Replaces the sequence on one side of the cursor by blanks, ended by three "X".
// Deliberate: the right side includes the cursor's position, the left side stops before it.
void put_X();
// Blanks what stands before the first and after the last upper-case letter, when confirmed.
// Deliberate: the alignment is not marked changed.
void sequence_partielle();

} // namespace kq
