// Readers of the derived files as their users would write them: they know the formats' descriptions, not the
// program.
#pragma once

#include <string>
#include <utility>
#include <vector>

namespace kq::test {

struct KelFile {
    std::string error; // what is wrong with the file, or ""
    std::vector<std::string> comments;
    int type = -1;
    std::vector<std::string> names, sequences;
    std::vector<int> positions; // from 1
};
KelFile read_kel(const std::string& path);

struct ReducedAli {
    std::string error;
    std::vector<std::string> comments;
    std::vector<std::string> names, sequences;
};
ReducedAli read_reduced_ali(const std::string& path);

// The lines of a list of species and groups: identifier, group. A line without " , " has an empty group.
std::vector<std::pair<std::string, std::string>> read_nom_list(const std::string& path);

} // namespace kq::test
