// format: the rejects file (.non), which keeps the sequences deleted from an alignment.
//
// A new file begins with the two header lines of the alignment ("#" and text). Each sequence adds "#" and the
// reason, ">" and the identifier, and the residues without blanks and "*".
#pragma once

#include <string>
#include <string_view>

namespace kq {

// The rejects file of the loaded alignment, in dir_SEQ.
std::string rejects_path();
// Adds a species to it. Empty on success, else what failed; the file is then as it was.
std::string append_reject(int species, std::string_view reason);

} // namespace kq
