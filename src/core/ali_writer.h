// format: writes .ali files; the safe save and the rescue copy. Opens no box.
#pragma once

#include <string>

namespace kq {

class NewFile;

// The store as an .ali file: header lines, then every species that is not destroyed, trailing blanks removed,
// "#MASKED#" kept. "#NEW#" is not written. Deliberate.
void write_ali_text(NewFile& file);

// Saves the store to dir_SEQ + file_ALI with its .bak backup. At every instant at least one complete copy of
// the alignment is on disk. Empty on success, else what failed; then everything is as it was.
std::string save_ali();

// Writes a rescue copy of unsaved work beside the alignment, else in the working directory, else in the home
// directory; its path, or "" when nothing is unsaved or no place could be written.
std::string rescue_ali();

} // namespace kq
