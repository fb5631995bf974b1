// platform: the files that a run will write, known before it starts.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace kq {

struct PlannedOutput {
    std::string name;        // in the working directory
    std::uint64_t bytes = 0; // about, rather more than less
};

// Every file of a run at a level of complexity, 1 to 3, on the loaded alignment, in the order they are
// written: for nb_spec_auto species and nb_nuc_keep positions.
std::vector<PlannedOutput> planned_outputs(int level);

// Why they cannot be written into the working directory; empty when nothing speaks against it. A file that is
// there already will be replaced; what is no file speaks against it.
std::string outputs_problem(std::span<const PlannedOutput> outputs);

} // namespace kq
