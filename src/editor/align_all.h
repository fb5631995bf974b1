// screen: aligning the cursor row on all gaps of the top row.
#pragma once

#include "editor/redraw.h"

namespace kq {

// aligne_proche (editor/similarity.h) until it has nothing left to do, is not answered with a hit to apply,
// or no longer comes further right. Many steps that need no answer move the rows once.
Redraw align_all_key();

} // namespace kq
