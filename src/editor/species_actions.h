// screen: the editor's keys that look at the species under the cursor or name it.
#pragma once

#include "editor/redraw.h"

namespace kq {

Redraw information_key();
Redraw rename_key();
Redraw fasta_key(); // also of a collapsed ensemble

} // namespace kq
