// format: reads the information file that may accompany an alignment.
//
// Records of lines, closed by an empty line; of interest are "[ACC] accession" and "[BLA] number ...".
#pragma once

#include <string>

namespace kq {

// Reads BLAST scores into evalue[..][0]: for each "[ACC]" record the first species whose identifier contains
// the accession gets the number of the record's "[BLA]" line. Lines end at a carriage return. A record whose
// accession is empty or in no identifier is passed over, and so is what is not a number; a file that is
// missing or cannot be read is no error.
void read_inf_scores(const std::string& path);

} // namespace kq
