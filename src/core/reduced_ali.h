// format: writes .ali files of some species and the columns they show. Opens no box.
#pragma once

#include "core/column_subset.h"

#include <span>
#include <string_view>

namespace kq {

class NewFile;

// Two header lines, then each row: ">name" and its characters of these columns. Deliberate: trailing blanks
// stay, "#MASKED#" is not written, and "#NEW#" only where a name ends in it.
void write_reduced_ali(NewFile& file, std::string_view molecule_line, std::string_view domain_line,
                       std::span<const OutputRow> rows, const ColumnSubset& columns);

} // namespace kq
