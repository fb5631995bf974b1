// kernel: taking over the gaps that an alignment program puts between residues.
#pragma once

#include <span>
#include <string_view>

namespace kq {

// Whether an aligned row, of letters and "-" only, holds these residues between its "-", apart from their
// case.
bool has_residues(std::string_view aligned, std::string_view residues);

// Writes the residues, in their own case, where the aligned row has its own, and "*" elsewhere in the region,
// which is not shorter than the row.
void lay_out(std::span<char> region, std::string_view aligned, std::string_view residues);

} // namespace kq
