// model: the 256 colours that pixels refer to.
#include "raster/palette.h"

namespace kq {

namespace {

// clang-format off
constexpr Rgb ega_colours[16] = {
    {0x00, 0x00, 0x00}, {0x00, 0x00, 0xAA}, {0x00, 0xAA, 0x00}, {0x00, 0xAA, 0xAA},
    {0xAA, 0x00, 0x00}, {0xAA, 0x00, 0xAA}, {0xAA, 0x55, 0x00}, {0xAA, 0xAA, 0xAA},
    {0x55, 0x55, 0x55}, {0x55, 0x55, 0xFF}, {0x55, 0xFF, 0x55}, {0x55, 0xFF, 0xFF},
    {0xFF, 0x55, 0x55}, {0xFF, 0x55, 0xFF}, {0xFF, 0xFF, 0x55}, {0xFF, 0xFF, 0xFF},
};
// clang-format on

int distance(Rgb a, Rgb b)
{
    const int red = a.red - b.red, green = a.green - b.green, blue = a.blue - b.blue;
    return red * red + green * green + blue * blue;
}

} // namespace

Palette::Palette()
{
    for (const Rgb colour : ega_colours)
        allocate(colour);
}

std::uint8_t Palette::allocate(Rgb colour)
{
    int nearest = 0;
    for (int i = 0; i < size_; i++) {
        const auto entry = entries_[static_cast<std::size_t>(i)];
        if (entry == colour) return static_cast<std::uint8_t>(i);
        if (distance(entry, colour) < distance(entries_[static_cast<std::size_t>(nearest)], colour))
            nearest = i;
    }
    if (size_ == capacity) return static_cast<std::uint8_t>(nearest);
    entries_[static_cast<std::size_t>(size_)] = colour;
    return static_cast<std::uint8_t>(size_++);
}

} // namespace kq
