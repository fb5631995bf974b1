// The largest number of species, spread over the groups of a frame, for benchmarks of what works on groups.
#pragma once

#include <string>

namespace kq::bench {

// Loads, once, 20000 species with short rows in a frame of 138 leaves; a quarter of them is new, so that
// names and states differ. Returns the text of their group file, its lines in another order than the species.
const std::string& load_grouped_species();

} // namespace kq::bench
