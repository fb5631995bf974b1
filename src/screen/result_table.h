// screen: a table of results in a box: headings, lines, and a legend below them. Lines that the screen has no
// room for are paged, and a table wider than its box scrolls sideways; the lower frame then says so.
#pragma once

#include "screen/text.h"

#include <string_view>
#include <vector>

namespace kq {

// The cells of one line of the box; index 0 is its first column, which the frame stands in.
using TableLine = std::vector<Cell>;
// Writes text into a line from a 1-based column of the box on; no column is left out before it.
void put_text(TableLine& line, int column, int text_color, std::string_view text,
              int background = color::black);

struct ResultTable {
    int first_line, first_column, last_column; // where the box stands; it is as high as its contents
    int frame_color;
    std::vector<TableLine> headings, lines, legend = {};
    // At the bottom of the screen, for a field beside the table that takes all keys but Up and Down.
    int lines_kept_free = 0;
};

class ResultTableView {
public:
    explicit ResultTableView(ResultTable table);

    void draw();
    // Scrolls by Up, Down, PgUp, PgDn, Home, End, Left and Right as far as there is more to see in that
    // direction of the table. False for other keys, and for all keys where everything is shown.
    bool scroll(int pressed);
    // Shows the table until a key is pressed that does not scroll it; that key.
    int wait();
    const Box& box() const { return box_; }

private:
    void draw_line(int line, const TableLine& cells) const;
    void draw_scroll_note() const;

    ResultTable table_;
    Box box_{};
    int rows_ = 1, columns_ = 1;           // room for lines, and for columns between the frame
    int first_ = 0, offset_ = 0;           // first line, and columns scrolled away on the left
    int last_first_ = 0, last_offset_ = 0; // the largest values of these
};

} // namespace kq
