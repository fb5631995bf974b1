// model: the four fonts that are built into the program.
#pragma once

#include <span>
#include <string_view>

namespace kq {

// The bytes of the .fnt file of "pc6x8", "pc8x8", "pc8x14" or "pc8x16"; empty for another name. The generated
// source is made by the font generator at build time.
std::span<const unsigned char> pc_font_file(std::string_view name);

} // namespace kq
