// model: which parts of a picture have changed since it was last shown.
#pragma once

#include <cstdint>
#include <vector>

namespace kq {

// A rectangle of pixels; empty when a side is not positive.
struct Rect {
    int x = 0, y = 0, width = 0, height = 0;
    bool empty() const { return width <= 0 || height <= 0; }
    bool operator==(const Rect&) const = default;
};
Rect intersection(const Rect& a, const Rect& b);

// Changed pixels, exact in y and to `grain` pixels in x: text changes whole cells of a few lines, so this
// keeps what travels to the window small at a cost of a few bits a scan line.
class Damage {
public:
    static constexpr int grain = 8;

    void resize(int width, int height); // nothing is changed afterwards
    void add(const Rect& changed);      // must lie inside
    bool any() const { return first_ < last_; }
    // The changed rectangles, from top to bottom, without overlap; then nothing is changed any more.
    std::vector<Rect> take();

private:
    int width_ = 0, height_ = 0;
    int words_ = 0;                   // 64-bit words a scan line
    int first_ = 0, last_ = 0;        // scan lines [first, last) may hold bits
    std::vector<std::uint64_t> bits_; // one bit a grain, lowest bit leftmost

    const std::uint64_t* line(int y) const { return bits_.data() + static_cast<std::ptrdiff_t>(y) * words_; }
    void append_runs(int y, int height, std::vector<Rect>& rects) const;
};

} // namespace kq
