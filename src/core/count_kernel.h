// kernel: counting residue classes in rows of text.
#pragma once

#include "core/residues.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace kq {

// What is counted. Every character is in exactly one class: its residue code, but blanks in a class of their
// own (the unknown code then holds "?" and "X" alone), and characters without a code in the last class.
struct ResidueClasses {
    int codes;
    int blank; // = codes
    int none;  // = codes + 1
    int count; // = codes + 2
    std::array<std::uint8_t, 256> class_of;
};
inline constexpr int most_classes = codes_prot + 2;
const ResidueClasses& residue_classes(int type); // 0 nucleic acid, 1 protein

// The text of a row; it reads as blanks beyond its length.
struct CountedText {
    const char* text;
    int length;
};

// Counters by class and column: the counter of (k, column) is at first[k * stride + column].
template <typename Counter>
struct CounterGrid {
    Counter* first;
    std::size_t stride;
    Counter* row(int k) const { return first + static_cast<std::size_t>(k) * stride; }
};

// A factor in the modular arithmetic of unsigned counters.
enum class Sign : std::uint32_t { plus = 1, minus = 0xFFFFFFFF };

// Adds or subtracts the columns [first, last) of the rows. Counter is std::uint16_t or std::uint32_t.
template <typename Counter>
void count_rows(CounterGrid<Counter> counters, const ResidueClasses& classes,
                std::span<const CountedText> rows, int first, int last, Sign sign);

// A row that counts so many times has changed from column `first` on: what stood there, and what stands there
// now, of equal length.
template <typename Counter>
void count_change(CounterGrid<Counter> counters, const ResidueClasses& classes, int first,
                  std::string_view before, std::string_view after, int times);

} // namespace kq
