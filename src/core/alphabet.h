// kernel: checks sequence text against the accepted alphabet.
#pragma once

#include <cstddef>
#include <string_view>

namespace kq {

// The index of the first character that is not in the alphabet of the molecule type (0 nucleic acid,
// 1 protein; core/residues.h) in either case; text.size() when there is none. "B" and "Z" are outside the
// protein alphabet.
std::size_t first_outside_alphabet(std::string_view text, int type) noexcept;

} // namespace kq
