// platform: what shows a picture and delivers keys. A driver knows neither cells nor drawing.
#pragma once

#include "raster/damage.h"

#include <span>
#include <string>

namespace kq {

class Palette;
class Surface;

class Driver {
public:
    // Returned by wait_key when the picture has to be presented again before waiting goes on (the focus has
    // changed).
    static constexpr int refresh = -1;

    Driver() = default;
    Driver(const Driver&) = delete;
    Driver& operator=(const Driver&) = delete;
    virtual ~Driver() = default;

    // Opens a window of this size in pixels, or gives the one that is open a new size. Empty, or a sentence
    // for the user that says why there is none.
    virtual std::string open(int width, int height, const std::string& title) = 0;
    virtual void set_title(const std::string& title) = 0;
    virtual void show_pointer() = 0;
    // Brings the changed rectangles of the picture to the window.
    virtual void present(const Surface& picture, const Palette& palette, std::span<const Rect> changed) = 0;
    // Waits for a key and returns its code (raster/keys.h), or `refresh`.
    virtual int wait_key() = 0;
    // Whether wait_key would return a key at once; takes note of everything that has happened to the window.
    virtual bool key_waiting() = 0;
    // Whether the key is among those that key_waiting speaks of; it and those before it are then taken away.
    virtual bool take_waiting(int code) = 0;
    virtual bool focused() const { return true; }
};

} // namespace kq
