// platform: a driver without a window: it keeps the picture that a window would show and plays a script of
// keys.
#pragma once

#include "raster/driver.h"
#include "raster/key_script.h"
#include "raster/surface.h"

#include <functional>

namespace kq {

class MemoryDriver final : public Driver {
public:
    struct Hooks {
        // A `screen` step of the script: shows what has been drawn and writes it.
        std::function<void(const std::string& name)> screen;
        // The program waits for a key and the script has ended. Must not return.
        std::function<void()> ended;
    };
    MemoryDriver(KeyScript script, Hooks hooks);

    // Starts another script.
    void play(KeyScript script, Hooks hooks);

    std::string open(int width, int height, const std::string& title) override;
    void set_title(const std::string& title) override { title_ = title; }
    void show_pointer() override {}
    void present(const Surface& picture, const Palette& palette, std::span<const Rect> changed) override;
    int wait_key() override;
    // True only for keys that the script marks as early.
    bool key_waiting() override;
    bool take_waiting(int code) override;

    const Surface& shown() const { return shown_; } // what a window would show
    const std::string& title() const { return title_; }

private:
    KeyScript script_;
    Hooks hooks_;
    std::size_t step_ = 0, code_ = 0; // the next key
    int round_ = 0;                   // how often the step has been played
    Surface shown_;
    std::string title_;

    void write_screens();
};

} // namespace kq
