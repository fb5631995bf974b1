#include "support/kel_reader.h"

#include <fstream>
#include <sstream>

namespace kq::test {

namespace {

// The lines of a file; the last one has to end with a line feed.
std::vector<std::string> lines_of(const std::string& path, std::string& error)
{
    std::ifstream file(path, std::ios::binary);
    if (!file) error = "no file";
    std::stringstream text;
    text << file.rdbuf();
    const std::string all = text.str();
    if (all.empty() || all.back() != '\n') error = "no line feed at the end";
    std::vector<std::string> lines;
    for (std::string line; std::getline(text, line);)
        lines.push_back(line);
    return lines;
}

} // namespace

KelFile read_kel(const std::string& path)
{
    KelFile kel;
    auto lines = lines_of(path, kel.error);
    std::size_t next = 0;
    while (next < lines.size() && lines[next].starts_with('#'))
        kel.comments.push_back(lines[next++]);
    std::size_t rows = 0, columns = 0;
    if (next == lines.size() || !(std::istringstream(lines[next++]) >> kel.type >> rows >> columns)) {
        kel.error = "no line of sizes";
        return kel;
    }
    if (lines.size() != next + 2 * rows + 1) {
        kel.error = "another number of lines";
        return kel;
    }
    for (std::size_t i = 0; i < rows; i++)
        kel.names.push_back(lines[next++]);
    std::istringstream positions(lines[next++]);
    for (int position; positions >> position;)
        kel.positions.push_back(position);
    if (kel.positions.size() != columns) kel.error = "another number of positions";
    for (std::size_t i = 0; i < rows; i++) {
        std::string line = lines[next++];
        if (line.size() != columns + 1 || line.back() != ':') kel.error = "row " + std::to_string(i);
        line.resize(columns);
        kel.sequences.push_back(line);
    }
    return kel;
}

ReducedAli read_reduced_ali(const std::string& path)
{
    ReducedAli ali;
    for (const std::string& line : lines_of(path, ali.error)) {
        if (ali.names.empty() && line.starts_with('#'))
            ali.comments.push_back(line.substr(1));
        else if (ali.names.size() == ali.sequences.size() && line.starts_with('>'))
            ali.names.push_back(line.substr(1));
        else if (ali.names.size() == ali.sequences.size() + 1)
            ali.sequences.push_back(line);
        else
            ali.error = "a line out of place: " + line;
    }
    if (ali.names.size() != ali.sequences.size()) ali.error = "a name without a sequence";
    return ali;
}

std::vector<std::pair<std::string, std::string>> read_nom_list(const std::string& path)
{
    std::string error;
    std::vector<std::pair<std::string, std::string>> pairs;
    for (const std::string& line : lines_of(path, error)) {
        const std::size_t comma = line.find(" , ");
        pairs.emplace_back(line.substr(0, comma), comma == std::string::npos ? "" : line.substr(comma + 3));
    }
    return pairs;
}

} // namespace kq::test
