// format: reads .ali alignment files in two passes: checking, then loading into the store. Opens no box.
#pragma once

#include <string>
#include <vector>

namespace kq {

// What the checking pass found.
struct AliCheck {
    std::string error; // empty, or why the file is rejected, in the system's words
    int recoded = 0;   // B and Z characters met in a protein alignment, one warning each
    int nb_spec = 0;
    int nb_nuc_tot = 0;
    int type_seq = 0;
    std::string molecule, domaine;
    bool opened = false; // false: the file could not be opened
};
AliCheck check_ali(const std::string& path);

// Loads the file that `check` describes into the store, the column flags and the consensus strings of
// ensemble 0, then sets the saved state. Empty, or why not ("Insufficient available memory (ident)"..., or
// that the file has changed since it was checked).
std::string load_ali(const std::string& path, const AliCheck& check);

// Reads the companion .inf file into evalue[..][0]: for each "[ACC]" record the first species whose
// identifier contains the accession gets the number of the record's "[BLA]" line. A missing file is no error.
void read_inf_scores(const std::string& path);

// The prescribed line reader and sequence check, over the same rules (used by the small tools and tests).
// read_line: the next line not beginning with "#" into `buffer`: 0, -1 with the message in the buffer, -2 at
// the end of the file. interp_seq: checks the sequence in `buffer`: 0, or -1 with the message in the buffer.

} // namespace kq
