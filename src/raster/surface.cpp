// model: a picture of palette indices with clipped drawing, which notes what it changes.
#include "raster/surface.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdlib>
#include <cstring>

namespace kq {

namespace {

// A byte of a glyph row as eight pixel masks, 255 where its bit is set.
constexpr std::array<std::uint64_t, 256> pixel_masks = [] {
    std::array<std::uint64_t, 256> masks{};
    for (unsigned byte = 0; byte < 256; byte++) {
        std::array<std::uint8_t, 8> pixels{};
        for (unsigned i = 0; i < 8; i++)
            pixels[i] = (byte >> (7 - i) & 1) != 0 ? 255 : 0;
        masks[byte] = std::bit_cast<std::uint64_t>(pixels);
    }
    return masks;
}();

// Eight pixels of one colour.
constexpr std::uint64_t eight(Surface::Pixel colour)
{
    return colour * 0x0101010101010101U;
}

std::size_t size_of(int pixels)
{
    return static_cast<std::size_t>(pixels);
}

} // namespace

Surface::Surface(int width, int height)
    : width_(width)
    , height_(height)
    , pixels_(size_of(width) * size_of(height), 0)
{
    damage_.resize(width, height);
    damage_.add(bounds());
}

int Surface::pixel(int x, int y) const
{
    if (x < 0 || y < 0 || x >= width_ || y >= height_) return -1;
    return pixels_[start(y) + size_of(x)];
}

void Surface::put(std::span<const Pixel> pixels)
{
    for (int y = 0; y < height_; y++) {
        const auto from = pixels.subspan(start(y), size_of(width_));
        const auto to = row(y);
        const auto first = std::ranges::mismatch(from, to).in1 - from.begin();
        if (first == width_) continue;
        std::ranges::copy(from, to.begin());
        damage_.add({static_cast<int>(first), y, width_ - static_cast<int>(first), 1});
    }
}

void Surface::clear(Pixel colour)
{
    paint(bounds(), colour);
}

void Surface::plot(int x, int y, Pixel colour)
{
    fill(x, y, x, y, colour);
}

void Surface::fill(int x1, int y1, int x2, int y2, Pixel colour)
{
    const int left = std::max(std::min(x1, x2), 0), right = std::min(std::max(x1, x2), width_ - 1);
    const int top = std::max(std::min(y1, y2), 0), bottom = std::min(std::max(y1, y2), height_ - 1);
    if (left > right || top > bottom) return;
    paint({left, top, right - left + 1, bottom - top + 1}, colour);
}

void Surface::outline(int x1, int y1, int x2, int y2, Pixel colour)
{
    fill(x1, y1, x2, y1, colour);
    fill(x1, y2, x2, y2, colour);
    fill(x1, y1, x1, y2, colour);
    fill(x2, y1, x2, y2, colour);
}

void Surface::line(int x1, int y1, int x2, int y2, Pixel colour)
{
    if (x1 == x2 || y1 == y2) {
        fill(x1, y1, x2, y2, colour);
        return;
    }
    // Each pixel is computed from the ends, not from its neighbour, so the part outside is simply left out.
    const std::int64_t dx = std::int64_t{x2} - x1, dy = std::int64_t{y2} - y1;
    const bool flat = std::llabs(dx) >= std::llabs(dy);
    const std::int64_t length = flat ? dx : dy, rise = flat ? dy : dx;
    const int from = flat ? x1 : y1, to = flat ? x2 : y2, other = flat ? y1 : x1;
    const int first = std::max(std::min(from, to), 0);
    const int last = std::min(std::max(from, to), (flat ? width_ : height_) - 1);
    for (int i = first; i <= last; i++) {
        const double exact = other + static_cast<double>(i - std::int64_t{from}) * static_cast<double>(rise) /
                                         static_cast<double>(length);
        const int across = static_cast<int>(std::lround(exact));
        plot(flat ? i : across, flat ? across : i, colour);
    }
}

void Surface::disc(int xc, int yc, int radius, Pixel colour)
{
    if (radius < 0) return;
    const double reach = static_cast<double>(radius) * radius + radius; // (radius + 1/2) squared, without 1/4
    const std::int64_t first = std::max<std::int64_t>(std::int64_t{yc} - radius, 0);
    const std::int64_t last = std::min<std::int64_t>(std::int64_t{yc} + radius, height_ - 1);
    for (std::int64_t y = first; y <= last; y++) {
        const auto dy = static_cast<double>(y - yc);
        const auto half = static_cast<std::int64_t>(std::sqrt(reach - dy * dy));
        const std::int64_t left = std::max<std::int64_t>(xc - half, 0);
        const std::int64_t right = std::min<std::int64_t>(xc + half, width_ - 1);
        if (left <= right)
            fill(static_cast<int>(left), static_cast<int>(y), static_cast<int>(right), static_cast<int>(y),
                 colour);
    }
}

void Surface::cell(const Rect& where, const Glyph& glyph, Pixel foreground, Pixel background)
{
    const Rect seen = intersection(where, bounds());
    if (seen.empty()) return;
    const std::uint64_t ink = eight(foreground), paper = eight(background);
    const int skipped = seen.x - where.x; // pixels of the cell left of the screen
    const int drawn = std::clamp(std::min(glyph.width, where.width) - skipped, 0, seen.width);
    for (int y = seen.y; y < seen.y + seen.height; y++) {
        Pixel* target = pixels_.data() + start(y) + seen.x;
        const int glyph_row = y - where.y;
        int x = 0; // pixels of this row done
        if (glyph_row < glyph.height && !glyph.rows.empty()) {
            const auto* bytes =
                glyph.rows.data() + static_cast<std::ptrdiff_t>(glyph_row) * glyph.bytes_per_row();
            while (x < drawn) {
                const int bit = skipped + x; // a byte of the glyph at a time; the first may be half outside
                const std::uint64_t mask = pixel_masks[bytes[bit / 8]];
                const std::uint64_t pixels = (mask & ink) | (~mask & paper);
                const int first = bit % 8, count = std::min(8 - first, drawn - x);
                if (count == 8)
                    std::memcpy(target + x, &pixels, 8);
                else
                    std::memcpy(target + x, reinterpret_cast<const Pixel*>(&pixels) + first, size_of(count));
                x += count;
            }
        }
        if (x < seen.width) std::memset(target + x, background, size_of(seen.width - x));
    }
    damage_.add(seen);
}

void Surface::paint(const Rect& inside, Pixel colour)
{
    for (int y = inside.y; y < inside.y + inside.height; y++)
        std::memset(pixels_.data() + start(y) + inside.x, colour, size_of(inside.width));
    damage_.add(inside);
}

} // namespace kq
