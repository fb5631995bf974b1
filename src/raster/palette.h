// model: the 256 colours that pixels refer to.
#pragma once

#include <array>
#include <cstdint>

namespace kq {

struct Rgb {
    std::uint8_t red = 0, green = 0, blue = 0;
    bool operator==(const Rgb&) const = default;
};

// Entries never change once taken, so what is on the screen keeps its colours. The sixteen basic colours are
// taken from the start: any other order of calls would give them other values.
class Palette {
public:
    static constexpr int capacity = 256;

    Palette();
    // The first entry that has this colour, else the next free one; when all are taken the nearest entry
    // (least sum of squared channel differences, the first of equals).
    std::uint8_t allocate(Rgb colour);
    Rgb colour(std::uint8_t index) const { return entries_[index]; } // black for an entry that is not taken
    int size() const { return size_; }                               // entries taken

private:
    std::array<Rgb, capacity> entries_{};
    int size_ = 0;
};

} // namespace kq
