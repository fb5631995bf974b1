// platform: a driver without a window: it keeps the picture that a window would show and plays a script of
// keys.
#include "raster/memory.h"

#include <algorithm>
#include <cstdlib>

namespace kq {

MemoryDriver::MemoryDriver(KeyScript script, Hooks hooks)
    : script_(std::move(script))
    , hooks_(std::move(hooks))
{
}

void MemoryDriver::play(KeyScript script, Hooks hooks)
{
    script_ = std::move(script);
    hooks_ = std::move(hooks);
    step_ = code_ = 0;
    round_ = 0;
}

std::string MemoryDriver::open(int width, int height, const std::string& title)
{
    shown_ = Surface(width, height);
    title_ = title;
    return {};
}

void MemoryDriver::present(const Surface& picture, const Palette&, std::span<const Rect> changed)
{
    for (const Rect& rect : changed)
        for (int y = rect.y; y < rect.y + rect.height; y++) {
            const auto from = picture.row(y).subspan(static_cast<std::size_t>(rect.x),
                                                     static_cast<std::size_t>(rect.width));
            std::copy(from.begin(), from.end(), shown_.row(y).begin() + rect.x);
        }
}

// Takes the `screen` steps that come next.
void MemoryDriver::write_screens()
{
    while (step_ < script_.steps.size() && script_.steps[step_].kind == ScriptStep::screen)
        hooks_.screen(script_.steps[step_++].name);
}

int MemoryDriver::wait_key()
{
    write_screens();
    if (step_ == script_.steps.size()) {
        hooks_.ended();
        std::abort(); // the hook's promise is broken: going on would wait for ever
    }
    const ScriptStep& step = script_.steps[step_];
    const int code = step.codes[code_];
    if (++code_ == step.codes.size()) {
        code_ = 0;
        round_++;
    }
    if (round_ == step.count) {
        round_ = 0;
        step_++;
    }
    return code;
}

bool MemoryDriver::key_waiting()
{
    auto next = step_;
    while (next < script_.steps.size() && script_.steps[next].kind == ScriptStep::screen)
        next++;
    return next < script_.steps.size() && script_.steps[next].early;
}

bool MemoryDriver::take_waiting(int code)
{
    for (auto next = step_; next < script_.steps.size(); next++) {
        const ScriptStep& step = script_.steps[next];
        if (step.kind == ScriptStep::screen) continue;
        if (!step.early) return false;
        if (std::find(step.codes.begin(), step.codes.end(), code) != step.codes.end()) {
            while (wait_key() != code) {
            }
            return true;
        }
    }
    return false;
}

} // namespace kq
