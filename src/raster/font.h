// model: a bitmap font in memory.
#pragma once

#include <array>
#include <span>
#include <vector>

namespace kq {

// One character: rows of bytes_per_row() bytes, most significant bit leftmost. A glyph without rows is blank.
struct Glyph {
    int width = 0, height = 0;
    std::span<const unsigned char> rows;
    int bytes_per_row() const { return (width + 7) / 8; }
};

class GrFont {
public:
    static constexpr int max_size = 256; // widest and highest glyph

    // A font of blank cells.
    GrFont(int width, int height)
        : width_(width)
        , height_(height)
    {
    }

    int width() const { return width_; } // of the widest glyph
    int height() const { return height_; }
    bool has(unsigned char c) const { return !places_[c].empty(); }
    // A blank glyph of width 0 for a character that the font lacks.
    Glyph glyph(unsigned char c) const;
    void set_glyph(unsigned char c, int width, std::span<const unsigned char> rows);

private:
    struct Place {
        std::size_t first = 0, size = 0; // bytes in bitmap_
        int width = 0;
        bool empty() const { return size == 0; }
    };
    int width_, height_;
    std::array<Place, 256> places_{};
    std::vector<unsigned char> bitmap_;
};

} // namespace kq
