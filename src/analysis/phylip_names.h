// model: the names of the analysed species in PHYLIP files.
#pragma once

#include <array>
#include <vector>

namespace kq {

inline constexpr int phylip_name_length = 10;
using PhylipName = std::array<char, phylip_name_length + 1>; // closing NUL included

// One for each analysed species, in analysis order; allocated with the matrices and empty outside an
// analysis. Written by creer_ident_phylip.
extern std::vector<PhylipName> ident_phylip;

} // namespace kq
