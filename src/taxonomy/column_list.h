// model: the cursor on a list that a screen shows in columns.
#pragma once

namespace kq {

// The columns are filled from the left; the screen shows some of them.
struct ColumnList {
    int rows, columns; // on the screen
    int current = 0;   // the cursor's entry
    int dec_obj = 0;   // the first entry shown

    int dec_spec() const { return dec_obj / rows; } // the column that it stands in
    int end_of_view() const { return dec_obj + rows * columns; }
    // Moves the cursor in a list of `count` entries, at most by a column or ten entries; the view follows by
    // whole columns.
    void move(int entries, int count);
};

} // namespace kq
