// format: finds the record of one sequence in the information file that may accompany an alignment.
#include "core/inf_record.h"

#include "core/line_reader.h"

namespace kq {

InfRecord read_inf_record(const std::string& path, std::string_view accession)
{
    LineReader reader(path);
    InfRecord record{.readable = reader.opened(), .organism = {}, .lines = {}};
    for (std::string_view line; record.lines.size() < most_inf_lines;) {
        const auto status = reader.next(line, LineReader::max_limit);
        if (status == LineReader::Status::end || status == LineReader::Status::failed) break;
        line = line.substr(0, line.find('\r'));
        const bool found = !record.lines.empty() || line.find(accession) != std::string_view::npos;
        if (line.empty()) {
            if (found) break;
            record.organism.clear();
            continue;
        }
        const std::string_view kept = line.substr(0, longest_inf_line);
        if (line.starts_with("[ORG]")) record.organism = kept;
        if (found) record.lines.emplace_back(kept);
    }
    if (record.lines.empty()) record.organism.clear();
    return record;
}

} // namespace kq
