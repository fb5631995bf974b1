// screen: choosing the species-to-group and the group-colour file; restoring the last used ones.
#pragma once

namespace kq {

// Reads the memory file and asks for each group file that cannot be read, until one is chosen.
void read_FRA_NOM_COL();

// The pop-up lists: 0 when a file was chosen (its path is set and remembered), -1 on ESCAPE. Colours take
// effect at once.
int choice_file_NOM();
int choice_file_COL();

} // namespace kq
