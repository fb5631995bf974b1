// format: writes .ali files; the safe save and the rescue copy. Opens no box.
#pragma once

#include <string>

namespace kq {

class NewFile;

// The store as an .ali file: header lines, then every species that is not destroyed, trailing blanks removed,
// "#MASKED#" kept. "#NEW#" is not written. Deliberate.
void write_ali_text(NewFile& file);
// Its size in bytes.
unsigned long long ali_text_size();

// Saves the store to dir_SEQ + file_ALI; the version that was there becomes the .bak file. Empty on success,
// else what failed; then the alignment and its backup are as they were.
// The order inside is that of screen/safe_replace.h; the temporary names are KQ_SAUVE.TMP and KQ_BACKUP.TMP.
std::string save_ali();

// Writes the store as NAME_rescue.ali (NAME_rescue2.ali... when there is one already) beside the alignment,
// else in the working directory, else in the home directory. Its path, or "" when nothing is unsaved or no
// place could be written.
std::string rescue_ali();

} // namespace kq
