// format: reads the information file that may accompany an alignment.
#include "core/inf_file.h"

#include "core/line_reader.h"
#include "core/multi_search.h"
#include "core/store.h"

#include <cmath>
#include <cstdlib>
#include <string_view>
#include <vector>

namespace kq {

namespace {

constexpr std::size_t value_column = 6; // where the text behind "[ACC] " and "[BLA] " begins
constexpr std::size_t max_accession = 49;

// The lines that matter, in the order of the file.
struct InfLine {
    enum class Kind { accession, score, empty } kind;
    std::string text; // accession or number
};

std::string_view value_of(std::string_view line, std::size_t length)
{
    return line.size() > value_column ? line.substr(value_column, length) : std::string_view{};
}

std::vector<InfLine> read_inf_lines(const std::string& path)
{
    std::vector<InfLine> lines;
    LineReader reader(path);
    std::string_view line;
    for (;;) {
        const auto status = reader.next(line, LineReader::max_limit);
        if (status == LineReader::Status::end || status == LineReader::Status::failed) return lines;
        line = line.substr(0, line.find('\r'));
        if (line.empty())
            lines.push_back({InfLine::Kind::empty, ""});
        else if (line.starts_with("[ACC]"))
            lines.push_back({InfLine::Kind::accession, std::string(value_of(line, max_accession))});
        else if (line.starts_with("[BLA]"))
            lines.push_back({InfLine::Kind::score, std::string(value_of(line, 100))});
    }
}

// Per line the first species whose identifier contains its accession, or -1.
std::vector<int> species_of_accessions(const std::vector<InfLine>& lines)
{
    std::vector<std::string_view> accessions, identifiers;
    for (const auto& line : lines)
        accessions.push_back(line.kind == InfLine::Kind::accession ? line.text : std::string_view{});
    for (int i = 0; i < nb_spec; i++)
        identifiers.push_back(identifier(i));
    return first_containing(accessions, identifiers);
}

} // namespace

void read_inf_scores(const std::string& path)
{
    const auto lines = read_inf_lines(path);
    const auto species = species_of_accessions(lines);
    int current = -1; // species of the open record
    for (std::size_t i = 0; i < lines.size(); i++) {
        // Deliberate: an "[ACC]" line inside the open record of a known species opens no new one.
        if (current < 0) {
            if (lines[i].kind == InfLine::Kind::accession) current = species[i];
            continue;
        }
        if (lines[i].kind == InfLine::Kind::accession) continue;
        if (lines[i].kind == InfLine::Kind::score) {
            char* end = nullptr;
            const double score = std::strtod(lines[i].text.c_str(), &end);
            if (end != lines[i].text.c_str() && std::isfinite(score))
                evalue[static_cast<std::size_t>(current)][0] = score;
        }
        current = -1;
    }
}

} // namespace kq
