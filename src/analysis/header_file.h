// format: the header files of an analysis, which list its species and positions. Opens no box.
#pragma once

#include "analysis/put_text.h"

namespace kq {

// For a matrix ('m') or sequences ('s'). Positions count from 1.
bool put_header_file(char kind, const PutText& put);

} // namespace kq
