// model: which parts of a picture have changed since it was last shown.
#include "raster/damage.h"

#include <algorithm>
#include <cassert>

namespace kq {

namespace {

// Changed runs with fewer unchanged grains than this between them become one rectangle: a request to the
// server costs more than the pixels of the gap.
constexpr int smallest_gap = 4;

} // namespace

Rect intersection(const Rect& a, const Rect& b)
{
    const auto end = [](int start, int size) { return std::int64_t{start} + size; }; // cannot overflow
    const int left = std::max(a.x, b.x), top = std::max(a.y, b.y);
    const std::int64_t width = std::min(end(a.x, a.width), end(b.x, b.width)) - left;
    const std::int64_t height = std::min(end(a.y, a.height), end(b.y, b.height)) - top;
    if (width <= 0 || height <= 0) return {};
    return {left, top, static_cast<int>(width), static_cast<int>(height)};
}

void Damage::resize(int width, int height)
{
    width_ = width;
    height_ = height;
    words_ = (width + grain * 64 - 1) / (grain * 64);
    first_ = last_ = 0;
    bits_.assign(static_cast<std::size_t>(words_) * static_cast<std::size_t>(height), 0);
}

void Damage::add(const Rect& changed)
{
    if (changed.empty()) return;
    assert(intersection(changed, Rect{0, 0, width_, height_}) == changed);
    const int left = changed.x / grain, right = (changed.x + changed.width - 1) / grain;
    const int bottom = changed.y + changed.height;
    for (int y = changed.y; y < bottom; y++) {
        std::uint64_t* words = bits_.data() + static_cast<std::ptrdiff_t>(y) * words_;
        for (int word = left / 64; word <= right / 64; word++) {
            const int low = std::max(left - word * 64, 0), high = std::min(right - word * 64, 63);
            words[word] |= (~std::uint64_t{0} >> (63 - (high - low))) << low;
        }
    }
    if (!any()) {
        first_ = changed.y;
        last_ = bottom;
    } else {
        first_ = std::min(first_, changed.y);
        last_ = std::max(last_, bottom);
    }
}

std::vector<Rect> Damage::take()
{
    std::vector<Rect> rects;
    for (int y = first_; y < last_;) {
        int next = y + 1;
        while (next < last_ && std::equal(line(y), line(y) + words_, line(next)))
            next++;
        append_runs(y, next - y, rects);
        y = next;
    }
    if (any())
        std::fill(bits_.begin() + static_cast<std::ptrdiff_t>(first_) * words_,
                  bits_.begin() + static_cast<std::ptrdiff_t>(last_) * words_, 0);
    first_ = last_ = 0;
    return rects;
}

// The changed runs of scan line y, each `height` lines high.
void Damage::append_runs(int y, int height, std::vector<Rect>& rects) const
{
    const int grains = (width_ + grain - 1) / grain;
    const auto changed = [&](int i) { return (line(y)[i / 64] >> (i % 64) & 1) != 0; };
    int start = -1, end = -1; // the run being collected, [start, end)
    const auto flush = [&] {
        if (start < 0) return;
        const int x = start * grain;
        rects.push_back({x, y, std::min(end * grain, width_) - x, height});
    };
    for (int i = 0; i < grains; i++) {
        if (i % 64 == 0 && line(y)[i / 64] == 0) {
            i += 63;
            continue;
        }
        if (!changed(i)) continue;
        if (start < 0 || i - end >= smallest_gap) {
            flush();
            start = i;
        }
        end = i + 1;
    }
    flush();
}

} // namespace kq
