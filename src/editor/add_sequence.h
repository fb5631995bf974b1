// screen: adding a sequence to the alignment.
#pragma once

namespace kq {

// Asks for a name and a sequence and appends the species to ensemble 0: 0, or -1 when nothing was added.
int add_new_sequence();

} // namespace kq
