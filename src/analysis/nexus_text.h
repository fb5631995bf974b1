// format: NEXUS files of the analysed species and the kept positions. Opens no box.
#pragma once

#include "analysis/put_text.h"

#include <string>
#include <string_view>

namespace kq {

// For PAUP 3.
bool put_paup_3_0(const PutText& put);
// For PAUP 4, with the commands that search for a tree and save it to the file `tree`. Deliberate: a row
// shorter than the alignment ends where it ends.
bool put_nexus(std::string_view tree, const PutText& put);

// A file name as a NEXUS command takes it: in single quotes when it has other characters than letters,
// digits, ".", "_" and "-".
std::string nexus_file_name(std::string_view name);

} // namespace kq
