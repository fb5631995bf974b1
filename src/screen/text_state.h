// model: the raster objects of the text layer, shared by screen/text.cpp and screen/window.cpp only.
#pragma once

#include "raster/grx.h"

#include <memory>

namespace kq {

extern GrTextOption textopt_c;           // font and colours of all output
extern std::unique_ptr<GrCursor> cursor; // null before the window is opened

} // namespace kq
