// screen: reading and writing the frame, the species-to-group file and the group-colour file.
//
// What is wrong with such a file ends the program with a sentence that says so; what cannot be written is
// shown.
#pragma once

#include <string>
#include <vector>

namespace kq {

extern std::vector<std::string> file_frame; // names of the .fra files, without extension, in byte order
extern int nb_frame, no_frame;              // how many, at most max_frames; index of the one in use
extern std::string file_NOM, file_COL;      // full paths of the group files in use, at most 99 bytes

void read_all_frame();    // fills file_frame; none is fatal
void write_FRA_NOM_COL(); // writes the memory file afas.ref
void read_frame();        // builds the tree of file_frame[no_frame], then reads the colour file
void read_file_NOM();     // gives every species its group
void read_file_COL();
// Gives the groups the colours of the colour file again; nothing changes when that cannot be read any more or
// is malformed, which is shown.
void reread_file_COL();
bool write_file_COL(); // false when it could not be written, which has been shown

// The path of a frame's file.
std::string frame_path(int frame);
// The name that a listed file is known by: its path up to the first ".", without directories. Deliberate: a
// "." in the directory cuts it short.
std::string listed_name(const std::string& directory, const std::string& file);

} // namespace kq
