// kernel: the sequences that outside programs get.
#pragma once

#include <string>
#include <string_view>

namespace kq {

// Adds ">lcl|SPECIES" and, on a line, the residues of the text: what is no gap ("*", "-", "$"), blank or "?".
// Returns how many they are; 0, and nothing is added, when there are none or less than `minimum`.
int append_fasta(std::string& file, int species, std::string_view text, int minimum);

} // namespace kq
