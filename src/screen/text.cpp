// screen: the text-cell layer over the raster interface.
//
// Contents: state, cells, text output, lines and shapes, boxes, cursor, dumps.
#include "screen/text.h"

#include "screen/strings.h"
#include "screen/text_state.h"

#include <algorithm>
#include <cstdlib>
#include <vector>

namespace kq {

int _nb_line = default_lines, _nb_col = default_columns;
int _gr_size_x = default_cell_height, _gr_size_y = default_cell_width;
int _type_font = default_font_type;

int x1_win = 0, y1_win = 0, x2_win = default_lines - 1, y2_win = default_columns - 1;
int x_c = 0, y_c = 0;
int color_c = color::light_grey, bgcolor_c = color::black;
int xold = 0, yold = 0;
const unsigned char* egacolors = nullptr;

GrTextOption textopt_c;
std::unique_ptr<GrCursor> cursor;

namespace {

// The cells as they are on the screen. Its size is that of the open window, which the geometry globals may
// already have left behind.
struct Grid {
    int lines = 0, columns = 0;
    std::vector<Cell> cells;

    Cell* row(int line) { return cells.data() + static_cast<std::size_t>(line) * columns_(); }
    bool holds(int line, int column) const
    {
        return line >= 0 && line < lines && column >= 0 && column < columns;
    }

private:
    std::size_t columns_() const { return static_cast<std::size_t>(columns); }
};
Grid grid;

// ---- cells (0-based, of the whole screen) -----------------------------------------------------------------

void draw_cell(int line, int column, const Cell& cell)
{
    textopt_c.txo_fgcolor = cell.fg;
    textopt_c.txo_bgcolor = cell.bg;
    GrDrawChar(cell.ch, column * _gr_size_y, line * _gr_size_x, _gr_size_y, _gr_size_x, textopt_c);
}

// What is kept of a character: a blank has no foreground to see.
Cell kept_cell(unsigned char ch, int fg, int bg)
{
    return {ch, static_cast<unsigned char>(ch == ' ' ? 7 : fg), static_cast<unsigned char>(bg), 0};
}

// Draws `count` cells from (line, column), cell_at(i) being the i-th; cut at the screen's edges.
template <class CellAt>
void put_cells(int line, int column, std::size_t count, CellAt cell_at)
{
    if (line < 0 || line >= grid.lines) return;
    const int first = std::max(0, -column);
    const int last = static_cast<int>(
        std::min<std::size_t>(count, static_cast<std::size_t>(std::max(0, grid.columns - column))));
    Cell* row = grid.row(line);
    for (int i = first; i < last; i++) {
        const Cell wanted = cell_at(static_cast<std::size_t>(i));
        Cell& cell = row[column + i];
        if (cell == wanted) continue;
        cell = wanted;
        draw_cell(line, column + i, wanted);
    }
}

// Blanks the cells of a rectangle; of each line only what is not blank already is filled.
void clear_cells(int l1, int c1, int l2, int c2)
{
    c1 = std::max(c1, 0);
    c2 = std::min(c2, grid.columns - 1);
    const auto used = [](const Cell& cell) { return cell != Cell{}; };
    for (int line = std::max(l1, 0); line <= std::min(l2, grid.lines - 1); line++) {
        if (c1 > c2) return;
        Cell* const begin = grid.row(line) + c1;
        Cell* const end = grid.row(line) + c2 + 1;
        Cell* const first = std::find_if(begin, end, used);
        if (first == end) continue;
        Cell* last = end - 1;
        while (!used(*last))
            last--;
        std::fill(first, last + 1, Cell{});
        const int x1 = (c1 + static_cast<int>(first - begin)) * _gr_size_y;
        const int x2 = (c1 + static_cast<int>(last - begin) + 1) * _gr_size_y - 1;
        GrFilledBox(x1, line * _gr_size_x, x2, (line + 1) * _gr_size_x - 1, color::black);
    }
}

// Records a shape in the cell that holds the pixel.
void mark_shape(int line, int column, Shape shape, int c)
{
    if (!grid.holds(line, column)) return;
    Cell& cell = grid.row(line)[column];
    cell.shape |= shape;
    if (cell.ch == ' ') cell.fg = static_cast<unsigned char>(c);
}

// Takes the mark away again after the shape was painted over; a character that stood below it comes back.
void unmark_shape(int line, int column, Shape shape)
{
    if (!grid.holds(line, column)) return;
    Cell& cell = grid.row(line)[column];
    cell.shape &= static_cast<unsigned char>(~shape);
    if (cell.shape) return;
    if (cell.ch == ' ') cell.fg = Cell{}.fg;
    draw_cell(line, column, cell);
}

// The cell of a pixel along one axis, also left of and above the screen.
int cell_of(int pixel, int cell_size)
{
    return pixel >= 0 ? pixel / cell_size : -1;
}

void mark_line(int x1, int y1, int x2, int y2, int c)
{
    const int width = std::abs(x2 - x1), height = std::abs(y2 - y1);
    const Shape shape = width >= height ? shape_horizontal : shape_vertical;
    const int steps = std::max(width, height);
    int line = -2, column = -2; // of the last step
    for (int i = 0; i <= steps; i++) {
        const int along_x = steps ? (x2 - x1) * i / steps : 0;
        const int along_y = steps ? (y2 - y1) * i / steps : 0;
        const int next_line = cell_of(y1 + along_y, _gr_size_x);
        const int next_column = cell_of(x1 + along_x, _gr_size_y);
        if (next_line == line && next_column == column) continue;
        line = next_line;
        column = next_column;
        mark_shape(line, column, shape, c);
    }
}

} // namespace

// ---- text output ------------------------------------------------------------------------------------------

void _settextwindow(int l1, int c1, int l2, int c2)
{
    x1_win = l1 - 1;
    y1_win = c1 - 1;
    x2_win = l2 - 1;
    y2_win = c2 - 1;
}

void _settextposition(int l, int c)
{
    x_c = l - 1;
    y_c = c - 1;
}

void _gettextposition(int* l, int* c)
{
    *l = x_c + 1;
    *c = y_c + 1;
}

void _outtext(std::string_view text)
{
    put_cells(x1_win + x_c, y1_win + y_c, text.size(), [text](std::size_t i) {
        return kept_cell(static_cast<unsigned char>(text[i]), color_c, bgcolor_c);
    });
}

void _outchar(char c)
{
    _outtext({&c, 1});
}

void _outcells(int line, int column, std::span<const Cell> cells)
{
    put_cells(x1_win + line - 1, y1_win + column - 1, cells.size(),
              [cells](std::size_t i) { return kept_cell(cells[i].ch, cells[i].fg, cells[i].bg); });
}

void _settextcolor(int c)
{
    color_c = c;
}

void _setbgcolor(int c)
{
    bgcolor_c = c;
}

void outtext_at(int l, int c, int text_color, std::string_view text)
{
    _settextposition(l, c);
    _settextcolor(text_color);
    _outtext(text);
}

void outtext_inside(int l, int c, int text_color, std::string_view text)
{
    const int room = std::max(0, y2_win - y1_win + 1 - c);
    outtext_at(l, c, text_color, text.substr(0, static_cast<std::size_t>(room)));
}

void _clearscreen(int mode)
{
    if (mode == 0)
        clear_cells(0, 0, grid.lines - 1, grid.columns - 1);
    else
        clear_cells(x1_win, y1_win, x2_win, y2_win);
}

// ---- lines and shapes -------------------------------------------------------------------------------------

void _moveto(int x, int y)
{
    xold = x;
    yold = y;
}

void _lineto(int x, int y)
{
    GrLine(xold, yold, x, y, static_cast<GrColor>(color_c));
    mark_line(xold, yold, x, y, color_c);
    _moveto(x, y);
}

void _filled_circle(int x, int y, int radius, int c)
{
    GrFilledCircle(x, y, radius, static_cast<GrColor>(c));
    for (int line = cell_of(y - radius, _gr_size_x); line <= cell_of(y + radius, _gr_size_x); line++)
        for (int column = cell_of(x - radius, _gr_size_y); column <= cell_of(x + radius, _gr_size_y);
             column++) {
            // The pixel of the cell that is nearest to the centre.
            const int nearest_x = std::clamp(x, column * _gr_size_y, (column + 1) * _gr_size_y - 1);
            const int nearest_y = std::clamp(y, line * _gr_size_x, (line + 1) * _gr_size_x - 1);
            const int dx = nearest_x - x, dy = nearest_y - y;
            if (dx * dx + dy * dy > radius * radius + radius) continue;
            if (c == color::black)
                unmark_shape(line, column, shape_disc); // a disc is erased by one in the background's colour
            else
                mark_shape(line, column, shape_disc, c);
        }
}

// ---- boxes ------------------------------------------------------------------------------------------------

namespace {

// Moves the interval [first, last] into [1, size]; what is longer is cut.
void fit_interval(int& first, int& last, int size)
{
    const int shift = last > size ? size - last : first < 1 ? 1 - first : 0;
    first = std::clamp(first + shift, 1, size);
    last = std::clamp(last + shift, first, size);
}

} // namespace

Box fit_box(Box box)
{
    fit_interval(box.l1, box.l2, _nb_line);
    fit_interval(box.c1, box.c2, _nb_col);
    return box;
}

void window_hp(int l1, int c1, int l2, int c2, int c)
{
    const Box box = fit_box({l1, c1, l2, c2});
    _settextwindow(box.l1, box.c1, box.l2, box.c2);
    _clearscreen(1);
    _settextcolor(c);
    const int left = box.c1 * _gr_size_y - _gr_size_y / 2, right = box.c2 * _gr_size_y - _gr_size_y / 2;
    const int top = box.l1 * _gr_size_x - _gr_size_x / 2, bottom = box.l2 * _gr_size_x - _gr_size_x / 2;
    _moveto(left, top);
    _lineto(right, top);
    _lineto(right, bottom);
    _lineto(left, bottom);
    _lineto(left, top);
}

ScreenCopy::ScreenCopy()
    : width_(GrSizeX())
    , height_(GrSizeY())
    , cells_(grid.cells)
    , pixels_(GrCopyPixels())
{
}

void ScreenCopy::put_back() const
{
    if (width_ != GrSizeX() || height_ != GrSizeY() || cells_.size() != grid.cells.size()) return;
    grid.cells = cells_;
    GrPutPixels(pixels_);
}

// ---- the block cursor -------------------------------------------------------------------------------------

void _display_cursor(int l, int c)
{
    if (!cursor) return;
    const int line = std::clamp(x1_win + l - 1, 0, std::max(0, grid.lines - 1));
    const int column = std::clamp(y1_win + c - 1, 0, std::max(0, grid.columns - 1));
    GrMoveCursor(*cursor, column * _gr_size_y, line * _gr_size_x);
    GrDisplayCursor(*cursor);
}

void _clean_cursor()
{
    if (cursor) GrEraseCursor(*cursor);
}

void present_screen()
{
    GrFlush();
}

void reset_text_screen()
{
    grid.lines = _nb_line;
    grid.columns = _nb_col;
    grid.cells.assign(static_cast<std::size_t>(_nb_line) * static_cast<std::size_t>(_nb_col), Cell{});
    _settextwindow(1, 1, _nb_line, _nb_col);
    _settextposition(1, 1);
    _moveto(0, 0);
    _settextcolor(color::light_grey);
    _setbgcolor(color::black);
}

// ---- dumps ------------------------------------------------------------------------------------------------

namespace {

char shown_character(const Cell& cell)
{
    if (cell.ch != ' ') return cell.ch > ' ' && cell.ch < 127 ? static_cast<char>(cell.ch) : '?';
    if (cell.shape & shape_disc) return 'o';
    if (cell.shape == (shape_horizontal | shape_vertical)) return '+';
    if (cell.shape) return cell.shape == shape_horizontal ? '-' : '|';
    return ' ';
}

char colour_character(int c, int unmarked)
{
    static constexpr std::string_view names =
        "0123456789abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ";
    if (c == unmarked) return '.';
    return static_cast<std::size_t>(c) < names.size() ? names[static_cast<std::size_t>(c)] : '#';
}

// One colour row of the dump; empty when all cells have the default.
std::string colour_row(std::string_view heading, const Cell* row, unsigned char Cell::*colour)
{
    std::string text;
    for (int column = 0; column < grid.columns; column++)
        text += colour_character(row[column].*colour, Cell{}.*colour);
    text.resize(text.find_last_not_of('.') + 1); // npos + 1 is 0
    return text.empty() ? text : std::string(heading) + text + "\n";
}

} // namespace

const Cell& screen_cell(int line, int column)
{
    static constexpr Cell outside;
    return grid.holds(line - 1, column - 1) ? grid.row(line - 1)[column - 1] : outside;
}

std::string screen_line(int line)
{
    std::string text;
    for (int column = 1; column <= grid.columns; column++)
        text += shown_character(screen_cell(line, column));
    return text;
}

std::string screen_dump()
{
    std::string text;
    for (int line = 1; line <= grid.lines; line++) {
        const Cell* row = grid.row(line - 1);
        text += text_format("%3d ", line) + screen_line(line) + "|\n";
        text += colour_row(" fg ", row, &Cell::fg);
        text += colour_row(" bg ", row, &Cell::bg);
    }
    return text;
}

} // namespace kq
