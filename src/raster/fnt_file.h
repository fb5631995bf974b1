// format: reads bitmap font files (.fnt).
//
// Little-endian: uint32 magic, uint32 size of the glyphs in bytes, then eight uint16 (width, height, lowest
// character, highest character, is-fixed, reserved, baseline, underline width), 16 bytes of file name, 16
// bytes of family name; for a proportional font one uint16 width a character; then the glyphs, each row
// padded to whole bytes, most significant bit leftmost.
#pragma once

#include "raster/font.h"

#include <memory>
#include <span>
#include <string>

namespace kq {

// Null when the bytes are not a whole font: wrong magic, a size of zero or above GrFont::max_size, a
// proportional width wider than the font's, or fewer bytes than the header promises. Characters above 255 are
// skipped; a proportional glyph of width 0 is a character that the font lacks. Bytes after the font are
// ignored.
std::shared_ptr<const GrFont> parse_fnt(std::span<const unsigned char> bytes);

// Null when the file is missing, not a regular file, or not a font.
std::shared_ptr<const GrFont> read_fnt_file(const std::string& path);

} // namespace kq
