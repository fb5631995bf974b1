// platform: the driver that shows the picture in an X11 window.
#pragma once

#include "raster/driver.h"

#include <functional>
#include <memory>

namespace kq {

// `lost` is called when the connection to the server is gone or the window was destroyed; it must not return.
// By then the driver does nothing any more.
std::unique_ptr<Driver> make_xwin_driver(std::function<void()> lost);

// Cuts the connection to the server; false when there is none. May be called from a signal handler.
bool cut_xwin_connection() noexcept;

} // namespace kq
