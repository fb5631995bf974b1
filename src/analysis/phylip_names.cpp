// model: the names of the analysed species in PHYLIP files.
#include "analysis/phylip_names.h"

namespace kq {

constinit std::vector<PhylipName> ident_phylip;

} // namespace kq
