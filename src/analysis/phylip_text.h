// format: PHYLIP files of the analysed species. Opens no box.
#pragma once

#include "analysis/put_text.h"

#include <string>

namespace kq {

enum PhylipMode : int {
    phylip_plain = 0,           // names with their blanks, unknown characters as "?"
    phylip_joined = 1,          // names without blanks, unknown characters as "X"
    phylip_with_identifier = 2, // the same, and the whole identifier; the sequence stands on the next line
};

// The first line: how many species and positions.
std::string phylip_first_line();
// For each species its name of ident_phylip and its characters at the kept positions. Deliberate: for nucleic
// acids, whatever is not one of "ACGURYH", unknown or "*" is "?", "T" and the gap "-" included; "*" is "-".
bool put_phylip_species(PhylipMode mode, const PutText& put);

} // namespace kq
