// model: the names of the analysed species in PHYLIP files.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace kq {

inline constexpr int phylip_name_length = 10;
using PhylipName = std::array<char, phylip_name_length + 1>; // closing NUL included

// One for each analysed species, in analysis order; allocated with the matrices and empty outside an
// analysis. Written by creer_ident_phylip.
extern std::vector<PhylipName> ident_phylip;

// Names every analysed species by the first 10 characters of its identifier, blanks after a shorter one. The
// second of equal names ends in "0", the third in "1"... the twelfth in "10", and so on with as many digits
// as it takes, over the end of the name. The first keeps its name.
// Deliberate: a name made so is not compared with the others.
void creer_ident_phylip();

// The 10 characters, as they are or with "_" for every blank.
std::string_view phylip_name(const PhylipName& name);
std::string phylip_name_joined(const PhylipName& name);

} // namespace kq
