// screen: files written from the ensembles for other programs: .kel, reduced .ali, one .ali for each
// ensemble, and the list of species and groups.
//
// They hold the columns that the ensembles show (with opt_nogap, all of them); the editor's own hidden
// columns and its cursor stay as they are. What cannot be written is said in a warning, and then nothing is.
#pragma once

#include <string>

namespace kq {

// Name, with its extension, of the last file that write_file_kel_ali wrote.
extern std::string file_KEL;

// The menu of outputs: 0 = written, -1 = cancelled or not written. The consensus of the ensembles leaves
// every ensemble shown species by species: an editor on the screen then counts its rows anew. The last entry
// puts the program kel in this one's place; when it cannot be started the end is fatal.
int write_file_kel_ali();
// Save the alignment if the user wants so, then ask for the name of the output into file_KEL; -1 = cancelled.
int choice_fichier_kel();
int choice_fichier_ali(); // never the file of the alignment that is open

// NAME0.ali, NAME1.ali... in the working directory, one for each ensemble; existing ones are overwritten.
void write_multiple_ali();

// "identifier , group" for every row, deleted ones included, in byte order of the lines, into a file in the
// working directory that the user names. 0, or -1 when cancelled or not written.
int write_file_nom();

} // namespace kq
