// screen: what a long computation shows while it runs, and ESCAPE, which stops it.
#pragma once

#include "analysis/report.h"

#include <cstdint>
#include <functional>

namespace kq {

// Brings to the window what has been drawn; false when ESCAPE has been pressed, which is then taken away.
bool go_on();
// Tests press ESCAPE where they want: asked by go_on() in the place of the keyboard; null = the keyboard.
void set_escape(std::function<bool()> pressed);

// The box of the distances: the percentage of the pairs done so far.
class DistanceProgress {
public:
    explicit DistanceProgress(std::int64_t pairs);
    ~DistanceProgress(); // clears the box
    DistanceProgress(const DistanceProgress&) = delete;
    DistanceProgress& operator=(const DistanceProgress&) = delete;

    // Writes the figure when it has grown; false as in go_on().
    bool show(std::int64_t done);
    Report report()
    {
        return [this](std::int64_t done) { return show(done); };
    }

private:
    std::int64_t pairs_, permille_ = 0;
};

} // namespace kq
