// screen: confirming, copying, renaming and deleting an alignment file; saving it; what is said about a
// loaded alignment.
#pragma once

namespace kq {

// Reads the file named by dir_SEQ and file_ALI: 0 = loaded, -1 = cancelled or rejected, -2 = the directory
// has changed (deleted, renamed, copied).
int confirm_choice_File_ALI();
// Saves the alignment; a warning when it cannot be saved, and the alignment stays unsaved.
void write_file_ALI();
// Asks whether to save when there are unsaved changes: -1 = ESCAPE, else 0. A save that failed counts as -1:
// the caller stays where it is.
int verif_sauvegarde();

// derive_families (core/families.h) with its messages: the warning about a single family, the fatal end with
// too many.
void identify_family();

} // namespace kq
