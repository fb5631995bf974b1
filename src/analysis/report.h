// kernel: how a long computation says how far it is, and learns that it is to stop.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>

namespace kq {

// Called from the thread that started the computation, at least twenty times a second, with the units done so
// far (pairs, joins, lines...). False asks the computation to stop: it then returns within a twentieth of a
// second, on all its threads, and says that it was stopped.
using Report = std::function<bool(std::int64_t done)>;

// For a loop that asks far more often than anybody wants to know.
class PacedReport {
public:
    explicit PacedReport(const Report& report)
        : report_(report)
    {
    }
    // Makes the report when the last one is a fiftieth of a second ago; true when it is not due yet.
    bool operator()(std::int64_t done)
    {
        const auto now = std::chrono::steady_clock::now();
        if (now < due_) return true;
        due_ = now + std::chrono::milliseconds(20);
        return report_(done);
    }

private:
    const Report& report_;
    std::chrono::steady_clock::time_point due_{};
};

} // namespace kq
