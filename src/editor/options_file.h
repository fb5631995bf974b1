// format: the display-options file kq_aff.sys in dir_DATA: 44 decimal integers, one a line: the five options,
// the colour classes of the 17 nucleotide codes, the colour classes of the 22 amino-acid codes.
#pragma once

#include <string>

namespace kq {

// Reads the file into core/options.h. A file that cannot be opened gives the defaults, and when pyx.sys is
// missing too, the default geometry. A value outside its bounds gives that value's default; what a short
// file leaves out keeps its value.
void read_config_affiche();
// Writes the file; empty on success, else what failed (the old file is then untouched).
std::string sauve_config_affiche();

} // namespace kq
