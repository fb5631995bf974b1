// format: finds the record of one sequence in the information file that may accompany an alignment.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kq {

struct InfRecord {
    bool readable = false; // false: there is no such file, or it is no regular file
    std::string organism;  // the record's last "[ORG]" line; empty without one
    std::vector<std::string>
        lines; // from the first line of the file with the accession to the next empty line
};

// Bounds of what is kept of a record.
inline constexpr int most_inf_lines = 200, longest_inf_line = 10000;

// Lines end at a carriage return or line feed. A record, which an empty line closes, may name its organism
// before or after its accession. What can no longer be read is as the end of the file.
InfRecord read_inf_record(const std::string& path, std::string_view accession);

} // namespace kq
