// model: what an editor action asks to be drawn again.
#pragma once

namespace kq {

// Deliberate: plain integers, because they are returned through prescribed functions.
enum Redraw : int {
    redraw_none = 0,
    redraw_sequences = 1, // the sequence area
    redraw_all_rows = 2,  // identifiers and sequences
    redraw_screen = 3,    // everything with the menu line
    leave_editor = -1,
};

} // namespace kq
