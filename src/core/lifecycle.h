// model: releasing an alignment, whole.
#pragma once

namespace kq {

// Releases the identifiers, the column flags and the consensus strings; the rows stay until the next load.
void libere_memoire();
// Everything in core/ as at program start (tests).
void alignment_reset();

} // namespace kq
