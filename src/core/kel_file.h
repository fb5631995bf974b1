// format: writes .kel files, the input of the analysis program kel. Opens no box.
#pragma once

#include "core/column_subset.h"

#include <span>
#include <string>

namespace kq {

class NewFile;

// What stands above the names.
struct KelHeader {
    std::string alignment, alignment_date; // the alignment's file name and its modification date
    std::string file, date;                // the .kel file's name and the current date
    std::string colors, groups;            // the files of group colours and of groups
    int type = 0;                          // 0 nucleic acid, 1 protein
};

// The header, the rows' names, the positions (from 1) of the columns, and the rows, each ended by ":".
void write_kel(NewFile& file, const KelHeader& header, std::span<const OutputRow> rows,
               const ColumnSubset& columns);

} // namespace kq
