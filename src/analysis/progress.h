// screen: what a long computation shows while it runs, and ESCAPE, which stops it.
#pragma once

#include "analysis/report.h"
#include "screen/text.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace kq {

// Brings to the window what has been drawn; false when ESCAPE has been pressed, which is then taken away.
bool go_on();
// Tests press ESCAPE where they want: asked by go_on() in the place of the keyboard; null = the keyboard.
void set_escape(std::function<bool()> pressed);

// The box of the distances: the percentage of the pairs done so far.
class DistanceProgress {
public:
    explicit DistanceProgress(std::int64_t pairs);
    ~DistanceProgress(); // what the box covered is back
    DistanceProgress(const DistanceProgress&) = delete;
    DistanceProgress& operator=(const DistanceProgress&) = delete;

    // Writes the figure when it has grown; false as in go_on().
    bool show(std::int64_t done);
    Report report()
    {
        return [this](std::int64_t done) { return show(done); };
    }

private:
    const ScreenCopy covered_;
    std::int64_t pairs_, permille_ = 0;
};

// The box with the name of a file that is being written, from the moment on that it takes long.
class FileProgress {
public:
    explicit FileProgress(std::string name);
    ~FileProgress() { close(); }
    FileProgress(const FileProgress&) = delete;
    FileProgress& operator=(const FileProgress&) = delete;

    // False as in go_on().
    bool show();
    // What the box covered is back.
    void close();

private:
    const std::string name_;
    std::chrono::steady_clock::time_point due_;
    std::optional<ScreenCopy> covered_; // while the box stands
};

} // namespace kq
