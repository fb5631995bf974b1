#include "support/kel_reader.h"

#include "support/ali_folder.h"

#include <sstream>

namespace kq::test {

DerivedFile read_kel(const std::string& path)
{
    std::istringstream text(read_bytes(path));
    DerivedFile kel;
    std::string line;
    for (int i = 0; i < 3; i++)
        if (!std::getline(text, line) || line[0] != '#') kel.error = "a comment is missing";
    std::size_t rows = 0, columns = 0;
    std::getline(text, line);
    if (!(std::istringstream(line) >> kel.type >> rows >> columns)) kel.error = "no sizes";
    while (kel.names.size() < rows && std::getline(text, line))
        kel.names.push_back(line);
    std::getline(text, line);
    std::istringstream numbers(line);
    for (int position; numbers >> position;)
        kel.positions.push_back(position);
    while (std::getline(text, line)) {
        if (line.size() != columns + 1 || line.back() != ':') kel.error = "not a row: " + line;
        kel.sequences.push_back(line.substr(0, columns));
    }
    if (kel.positions.size() != columns || kel.sequences.size() != rows) kel.error = "other sizes";
    return kel;
}

DerivedFile read_reduced_ali(const std::string& path)
{
    std::istringstream text(read_bytes(path));
    DerivedFile ali;
    std::string name, row;
    for (int i = 0; i < 2; i++)
        if (!std::getline(text, name) || name[0] != '#') ali.error = "a header line is missing";
    while (std::getline(text, name)) {
        if (name[0] != '>' || !std::getline(text, row)) ali.error = "not a species: " + name;
        ali.names.push_back(name.substr(1));
        ali.sequences.push_back(row);
    }
    return ali;
}

} // namespace kq::test
