// Readers of the derived files as their users would write them: they know the formats' descriptions, not the
// program.
#pragma once

#include <string>
#include <vector>

namespace kq::test {

struct DerivedFile {
    std::string error; // what is wrong with the file, or ""
    std::vector<std::string> names, sequences;
    int type = -1;              // .kel only, as are
    std::vector<int> positions; // from 1
};
DerivedFile read_kel(const std::string& path);
DerivedFile read_reduced_ali(const std::string& path);

} // namespace kq::test
