// model: the hidden columns, computed from the column counts.
#pragma once

#include "core/column_counts.h"

namespace kq {

inline constexpr unsigned char column_hidden = 255, column_shown = 0;
// One of these for each column; the byte at nb_nuc_tot is a sentinel of value 1. Null while nothing is
// loaded.
extern unsigned char* delcom;
extern int nb_nuc; // number of columns shown

// Allocates delcom for `columns` columns; false when memory is refused.
bool columns_allocate(int columns);
// Makes room for `columns` columns; false when memory is refused. The flags read as before either way.
bool columns_reserve(int columns);
// The alignment has grown to `columns`, for which there is room: the new columns are shown until the next
// recompute_hidden.
void columns_extend(int old_columns, int columns);
// Releases delcom and every count.
void columns_release();

// Recomputes delcom and nb_nuc: hidden = every species of every ensemble has a gap-class character ("*",
// blank, "$", "-") there. With show_all every column is shown. Returns how many hidden columns at or before
// `position` stopped being hidden minus how many became hidden. nb_nuc may become 0: the caller decides what
// that means.
int recompute_hidden(bool show_all, int position);

} // namespace kq
