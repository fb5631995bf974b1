// format: writes pictures as PNG files.
#pragma once

#include <string>

namespace kq {

class Palette;
class Surface;

// Writes the picture with its palette; false when it cannot be written, and then no file is left behind.
bool write_png(const std::string& path, const Surface& picture, const Palette& palette);

} // namespace kq
