// kernel: when a computation on one thread reports.
#pragma once

#include "analysis/report.h"

#include <cstddef>

namespace kq {

// Counts the numbers that have been read; after so many of them, a few milliseconds, the report is made.
class WorkMeter {
public:
    explicit WorkMeter(const Report& report)
        : report_(report)
    {
    }

    // False when the computation is to stop.
    bool spend(std::size_t numbers)
    {
        unreported_ += numbers;
        if (unreported_ < numbers_a_report) return true;
        unreported_ = 0;
        return report_(done_);
    }
    void count_unit() { done_++; }

private:
    static constexpr std::size_t numbers_a_report = 2000000;

    const Report& report_;
    std::size_t unreported_ = 0;
    std::int64_t done_ = 0;
};

} // namespace kq
