// model: a bitmap font in memory.
#include "raster/font.h"

#include <cassert>

namespace kq {

Glyph GrFont::glyph(unsigned char c) const
{
    const Place& place = places_[c];
    return {place.width, height_, std::span(bitmap_).subspan(place.first, place.size)};
}

void GrFont::set_glyph(unsigned char c, int width, std::span<const unsigned char> rows)
{
    assert(width > 0 && width <= max_size && height_ <= max_size);
    assert(rows.size() == static_cast<std::size_t>((width + 7) / 8) * static_cast<std::size_t>(height_));
    places_[c] = {bitmap_.size(), rows.size(), width};
    bitmap_.insert(bitmap_.end(), rows.begin(), rows.end());
}

} // namespace kq
