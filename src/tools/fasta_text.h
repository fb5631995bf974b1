// kernel: the sequences that outside programs get.
#pragma once

#include <string>
#include <string_view>

namespace kq {

// Adds ">lcl|SPECIES" and, on a line, the characters of the text that are no gap ("*", "-", "$"), blank or
// "?", when there are at least `minimum` of them.
void append_fasta(std::string& file, int species, std::string_view text, int minimum);

} // namespace kq
