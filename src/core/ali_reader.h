// format: reads .ali alignment files in two passes: checking, then loading into the store. Opens no box.
//
// The file: two header lines beginning with "#", then per species an identifier line beginning with ">" and a
// sequence line; further lines beginning with "#" are comments. Identifiers, header lines and what is checked
// of a sequence end at a carriage return; rows keep it. A NUL character is refused anywhere but in a comment.
#pragma once

#include "core/line_reader.h"

#include <cstdio>
#include <string>

namespace kq {

// The longest line that is read, in characters, line feed not counted.
inline constexpr int longest_line = 149997;

// What the checking pass found.
struct AliCheck {
    std::string error; // empty, or why the file is rejected, in the system's words
    int recoded = 0;   // B and Z characters met in a protein alignment (before the error, if there is one)
    int nb_spec = 0;
    int nb_nuc_tot = 0;
    int type_seq = 0;
    std::string molecule, domaine;
    bool opened = false; // false: the file could not be opened
    FileStamp stamp;     // which version of the file was checked
};
AliCheck check_ali(const std::string& path);

// Loads the file that `check` describes into the store, the column flags and the consensus strings of
// ensemble 0, sets the decoding table and the saved state. Returns empty, or why not ("Insufficient available
// memory (ident)"..., or that the file has changed since it was checked); then no alignment is loaded.
std::string load_ali(const std::string& path, const AliCheck& check);

// The same rules line by line, over the work buffer; the plain reference of the two passes above.
//
// Reads the next line that is no comment into `buffer`, cut at a carriage return and the line feed, and adds
// the lines read to *line_no. 0; -1 with the message in `buffer`; -2 at the end of the file.
int read_line(std::FILE* file, int want_sequence, int* line_no);
// Checks the sequence in `buffer`: folds it to upper case, raises nb_nuc_tot to its length, decides type_seq
// while nb_spec is 0, recodes B and Z by X in a protein (each adds one to *recoded). 0, or -1 with the
// message in `buffer`.
int interp_seq(int line_no, int* recoded = nullptr);

} // namespace kq
