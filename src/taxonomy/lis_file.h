// format: species-list files (.lis): an archived selection.
//
// Line 1 "#Created by AUTHOR on DATE", line 2 "#" and the title, line 3 the number of species, then one
// identifier a line in the order of selection.
#pragma once

#include "core/store.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kq {

inline constexpr std::string_view lis_extension = ".lis";

// No list holds more lines than this many after its head; the rest of a longer file is not read.
inline constexpr int max_listed_names = 10 * max_species;

// What a file says, in its order.
struct LisFile {
    std::string created, title;     // the first two lines without their first character
    int count = 0;                  // the number of line 3 as it stands, whatever follows; 0 = no number
    std::vector<std::string> names; // all lines that follow, cut to the length of an identifier
    std::string remark;             // what is odd about a list that was read; empty = nothing
    std::string error;              // why the file could not be read to its end: nothing else counts
};

// Any bytes are read. Lines may end with a carriage return, the last one without a line feed.
LisFile read_lis(const std::string& path);

// The text of such a file.
std::string lis_text(std::string_view author, std::string_view date, std::string_view title,
                     std::span<const std::string_view> names);

} // namespace kq
