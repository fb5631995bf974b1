// format: reads the table of hits that blastall writes.
#pragma once

#include <string_view>
#include <vector>

namespace kq {

// The best segment that a species has in common with the query.
struct BlastHit {
    int species = -1;      // 0-based
    double identity = 0.0; // percent
    int length = 0;        // columns of the segment
    double evalue = -1.0;
    double score = 0.0; // bits
};

struct BlastTable {
    std::vector<BlastHit> hits; // in the order of the table
    int unread_line = 0;        // 1-based; 0 when every line has been read
};

// A line is twelve fields: query, subject, percent identity, length, six that do not matter, e-value, bit
// score. Query and subject are "lcl|" and a species number, below `species`. Of neighbouring lines with the
// same subject the first counts. Reading stops at the first line that is anything else.
BlastTable read_blast_table(std::string_view text, int species);

} // namespace kq
