// kernel: a table of counters, residue class by column, for a set of rows.
#pragma once

#include "core/count_kernel.h"

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <span>
#include <string_view>

namespace kq {

// Columns [first, last); empty when first >= last.
struct ColumnRange {
    int first = 0, last = 0;
    bool empty() const { return first >= last; }
};

// The counts of a set of rows: how many of them hold each residue code in each column. A row in the set twice
// counts twice. Counters have 16 bits while the set has at most 65535 rows, else 32.
//
// The table knows no rows; whoever changes rows tells it. It notes which columns have changed since its
// reader last asked. A table without memory does not exist and has to be started.
class CountTable {
public:
    // An empty set; every counter is zero. False, and no table, when memory is refused.
    bool start(int type, int columns, int members);
    void release();
    bool exists() const { return block_ != nullptr; }

    int members() const { return members_; }
    int codes() const { return classes_->codes; }
    int columns() const { return columns_; }
    // Rows with this code in the column. The unknown code includes the blanks, which blank() counts alone;
    // characters without a code are in neither.
    std::uint32_t count(int code, int column) const;
    std::uint32_t blank(int column) const;
    // Columns whose counts may have changed since the last call.
    ColumnRange take_changes();

    // Whether the counters are wide enough for that many rows.
    bool holds(int members) const;
    void set_members(int members);

    // Changes of text. None of these changes the number of members.
    void add(std::span<const CountedText> rows, int first, int last, Sign sign);
    void add(const CountTable& part, int first, int last, Sign sign); // a table of the same type and length
    void add(char c, int times, int first, int last);                 // that many rows, which hold c there
    // One row, in the set so many times, has changed.
    void change(int first, std::string_view before, std::string_view after, int times);
    void shift_right(int first, int n); // from `first` on; the opened counters are zero, the last n are lost
    void shift_left(int first, int n);  // into the place of [first, first + n); the last n counters are zero
    void clear(int first, int last);    // to zero
    void extend(int n);                 // by n columns of zeros; the table is released when memory is refused
    void touch() { note(0, columns_); } // every column counts as changed

    // Calls f with a CounterGrid<const Counter> of the type in use.
    template <typename F>
    void read(F f) const
    {
        if (wide_) {
            f(CounterGrid<const std::uint32_t>{static_cast<const std::uint32_t*>(block_.get()), stride_});
        } else {
            f(CounterGrid<const std::uint16_t>{static_cast<const std::uint16_t*>(block_.get()), stride_});
        }
    }

private:
    struct Free {
        void operator()(void* block) const { std::free(block); }
    };
    using Block = std::unique_ptr<void, Free>;

    template <typename F>
    void write(F f)
    {
        if (wide_) {
            f(CounterGrid<std::uint32_t>{static_cast<std::uint32_t*>(block_.get()), stride_});
        } else {
            f(CounterGrid<std::uint16_t>{static_cast<std::uint16_t*>(block_.get()), stride_});
        }
    }
    bool allocate(int columns, Block& block, std::size_t& stride) const;
    void note(int first, int last);

    Block block_;
    std::size_t stride_ = 0; // counters from one class to the next: columns_ and room for more
    bool wide_ = false;
    int members_ = 0, columns_ = 0;
    const ResidueClasses* classes_ = nullptr;
    ColumnRange changed_;
};

} // namespace kq
