// kernel: a table of counters, residue class by column, for a set of rows.
#include "core/count_table.h"

#include <algorithm>
#include <cassert>
#include <limits>
#include <type_traits>
#include <utility>

namespace kq {

namespace {

constexpr int most_narrow = std::numeric_limits<std::uint16_t>::max();

} // namespace

bool CountTable::allocate(int columns, Block& block, std::size_t& stride) const
{
    // Room for growth; an odd number of cache lines, so that the classes of a column do not share one set.
    constexpr std::size_t line = 64;
    const std::size_t width = wide_ ? sizeof(std::uint32_t) : sizeof(std::uint16_t);
    const std::size_t wanted =
        static_cast<std::size_t>(columns) + static_cast<std::size_t>(columns) / 32 + 128;
    const std::size_t lines = (wanted * width / line + 1) | 1;
    const std::size_t bytes = lines * line * static_cast<std::size_t>(classes_->count);
    block.reset(std::aligned_alloc(line, bytes));
    if (!block) return false;
    std::fill_n(static_cast<unsigned char*>(block.get()), bytes, static_cast<unsigned char>(0));
    stride = lines * line / width;
    return true;
}

bool CountTable::start(int type, int columns, int members)
{
    classes_ = &residue_classes(type);
    wide_ = members > most_narrow;
    members_ = members;
    columns_ = columns;
    changed_ = {0, columns};
    block_.reset();
    return allocate(columns, block_, stride_);
}

void CountTable::release()
{
    block_.reset();
    members_ = columns_ = 0;
}

std::uint32_t CountTable::count(int code, int column) const
{
    std::uint32_t result = 0;
    read([&](auto counters) {
        result = counters.row(code)[column];
        if (code == classes_->codes - 1) result += counters.row(classes_->blank)[column];
    });
    return result;
}

std::uint32_t CountTable::blank(int column) const
{
    std::uint32_t result = 0;
    read([&](auto counters) { result = counters.row(classes_->blank)[column]; });
    return result;
}

ColumnRange CountTable::take_changes()
{
    return std::exchange(changed_, {});
}

void CountTable::note(int first, int last)
{
    if (first >= last) return;
    changed_ = changed_.empty() ? ColumnRange{first, last}
                                : ColumnRange{std::min(changed_.first, first), std::max(changed_.last, last)};
}

bool CountTable::holds(int members) const
{
    return wide_ || members <= most_narrow;
}

void CountTable::set_members(int members)
{
    assert(holds(members));
    members_ = members;
    touch();
}

void CountTable::add(std::span<const CountedText> rows, int first, int last, Sign sign)
{
    if (rows.empty()) return;
    write([&](auto counters) { count_rows(counters, *classes_, rows, first, last, sign); });
    note(first, last);
}

void CountTable::add(const CountTable& part, int first, int last, Sign sign)
{
    assert(part.classes_ == classes_ && last <= columns_ && last <= part.columns_);
    write([&](auto counters) {
        part.read([&](auto added) {
            using Counter = std::remove_pointer_t<decltype(counters.first)>;
            for (int k = 0; k < classes_->count; k++)
                for (int j = first; j < last; j++)
                    counters.row(k)[j] = static_cast<Counter>(
                        counters.row(k)[j] + static_cast<std::uint32_t>(sign) * added.row(k)[j]);
        });
    });
    note(first, last);
}

void CountTable::add(char c, int times, int first, int last)
{
    write([&](auto counters) {
        auto* row = counters.row(classes_->class_of[static_cast<unsigned char>(c)]);
        for (int j = first; j < last; j++)
            row[j] = static_cast<std::remove_reference_t<decltype(*row)>>(row[j] +
                                                                          static_cast<std::uint32_t>(times));
    });
    note(first, last);
}

void CountTable::change(int first, std::string_view before, std::string_view after, int times)
{
    const auto start = std::mismatch(before.begin(), before.end(), after.begin()).first - before.begin();
    const auto same = std::mismatch(before.rbegin(), before.rend(), after.rbegin()).first - before.rbegin();
    const auto end = std::ssize(before) - same;
    if (start >= end) return;
    const auto from = static_cast<std::size_t>(start), count = static_cast<std::size_t>(end - start);
    first += static_cast<int>(start);
    write([&](auto counters) {
        count_change(counters, *classes_, first, before.substr(from, count), after.substr(from, count),
                     times);
    });
    note(first, first + static_cast<int>(count));
}

void CountTable::shift_right(int first, int n)
{
    n = std::min(n, columns_ - first);
    write([&](auto counters) {
        for (int k = 0; k < classes_->count; k++) {
            auto* row = counters.row(k);
            std::copy_backward(row + first, row + columns_ - n, row + columns_);
        }
    });
    clear(first, first + n);
    note(first, columns_);
}

void CountTable::shift_left(int first, int n)
{
    n = std::min(n, columns_ - first);
    write([&](auto counters) {
        for (int k = 0; k < classes_->count; k++) {
            auto* row = counters.row(k);
            std::copy(row + first + n, row + columns_, row + first);
        }
    });
    clear(columns_ - n, columns_);
    note(first, columns_);
}

void CountTable::clear(int first, int last)
{
    write([&](auto counters) {
        for (int k = 0; k < classes_->count; k++)
            std::fill(counters.row(k) + first, counters.row(k) + last, 0);
    });
    note(first, last);
}

void CountTable::extend(int n)
{
    const int columns = columns_ + n;
    if (static_cast<std::size_t>(columns) > stride_) {
        Block larger;
        std::size_t stride = 0;
        if (!allocate(columns, larger, stride)) {
            release();
            return;
        }
        write([&](auto counters) {
            auto* target = static_cast<decltype(counters.first)>(larger.get());
            for (int k = 0; k < classes_->count; k++)
                std::copy_n(counters.row(k), columns_, target + static_cast<std::size_t>(k) * stride);
        });
        block_ = std::move(larger);
        stride_ = stride;
    }
    columns_ = columns;
    clear(columns - n, columns);
}

} // namespace kq
