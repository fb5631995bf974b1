// model: a picture of palette indices with clipped drawing, which notes what it changes.
#pragma once

#include "raster/damage.h"
#include "raster/font.h"

#include <cstdint>
#include <span>
#include <vector>

namespace kq {

// Pixels are (x, y) from the top left corner, both from 0. Coordinates may be any ints: whatever lies outside
// is cut away.
class Surface {
public:
    using Pixel = std::uint8_t;
    static constexpr int max_size = 16384; // pixels a side

    Surface() = default;
    Surface(int width, int height); // all 0, all changed

    int width() const { return width_; }
    int height() const { return height_; }
    Rect bounds() const { return {0, 0, width_, height_}; }
    std::span<const Pixel> row(int y) const
    {
        return {pixels_.data() + start(y), static_cast<std::size_t>(width_)};
    }
    // For painting something temporary: changes through it are not noted.
    std::span<Pixel> row(int y) { return {pixels_.data() + start(y), static_cast<std::size_t>(width_)}; }
    int pixel(int x, int y) const;                            // -1 outside
    std::span<const Pixel> pixels() const { return pixels_; } // row after row
    // Takes those of a surface of the same size; notes only what differs.
    void put(std::span<const Pixel> pixels);

    void clear(Pixel colour);
    void plot(int x, int y, Pixel colour);
    void fill(int x1, int y1, int x2, int y2, Pixel colour);    // corners included, in any order
    void outline(int x1, int y1, int x2, int y2, Pixel colour); // corners included
    // Both ends included; the pixel nearest to the exact line in each step along its longer side.
    void line(int x1, int y1, int x2, int y2, Pixel colour);
    // All pixels at most radius + 1/2 away from the centre.
    void disc(int xc, int yc, int radius, Pixel colour);
    // Fills the cell with the background and draws the glyph into its top left corner, cut where it is larger
    // than the cell.
    void cell(const Rect& where, const Glyph& glyph, Pixel foreground, Pixel background);

    Damage& damage() { return damage_; }

private:
    int width_ = 0, height_ = 0;
    std::vector<Pixel> pixels_;
    Damage damage_;

    std::size_t start(int y) const { return static_cast<std::size_t>(y) * static_cast<std::size_t>(width_); }
    void paint(const Rect& inside, Pixel colour);
};

} // namespace kq
