// screen: choosing and reading the frame, the species-to-group file and the group-colour file.
#pragma once

#include <string>
#include <vector>

namespace kq {

extern std::vector<std::string> file_frame; // names of the .fra files, without extension, in byte order
extern int nb_frame, no_frame;              // how many; the one in use
extern std::string file_NOM, file_COL;      // full paths of the group files in use

void read_all_frame();    // fills file_frame; none is fatal
void read_FRA_NOM_COL();  // restores the last used names; asks where a file is not readable
void write_FRA_NOM_COL(); // writes the memory file afas.ref
void read_frame();        // builds the tree of file_frame[no_frame], then reads the colour file
void adjust_frame();      // scales the tree from the frame's own numbers to the current cell
void read_file_NOM();     // gives every species its group
void read_file_COL();
void write_file_COL();

// The chooser's screens. choice_frame changes the frame; the other two return 0 when a file was chosen, -1 on
// ESCAPE.
void choice_frame();
int choice_file_NOM();
int choice_file_COL();

} // namespace kq
