// screen: the text-cell layer: a grid of characters with colours, drawn over the raster interface.
//
// Lines and columns are 1-based in all calls and relative to the current text window; colours are palette
// indices. The grid of cells is kept beside the pixels: a cell that would not change is not drawn again.
// Output is clipped to the screen, never to the text window.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kq {

// ---- geometry; written by read_config_pyx, the geometry dialog and the options file's defaults ------------

inline constexpr int default_font_type = 0, default_cell_height = 14, default_cell_width = 8;
inline constexpr int default_lines = 34, default_columns = 80;
inline constexpr int min_lines = 20, max_lines = 200, min_columns = 20, max_columns = 200;
inline constexpr int min_cell_height = 5, max_cell_height = 64, min_cell_width = 4, max_cell_width = 32;

extern int _nb_line, _nb_col; // screen size in cells
extern int _gr_size_x;        // height of a cell in pixels. Deliberate: the two names are the reverse
extern int _gr_size_y;        // width of a cell in pixels   of what one would expect.
extern int _type_font;        // 0 built-in PC fonts, 1 "courrier" files, 2 "xm" files

// ---- text state; written by the calls below ---------------------------------------------------------------

extern int x1_win, y1_win, x2_win, y2_win; // first line, first column, last line, last column of the text
                                           // window in screen cells, 0-based
extern int x_c, y_c;                       // cursor line and column inside the window, 0-based
extern int color_c, bgcolor_c;             // current text and background colours
extern int xold, yold;                     // pen position in pixels
extern const unsigned char* egacolors;     // the sixteen basic colours; egacolors[i] == i

// Colours by their index in egacolors.
namespace color {
inline constexpr int black = 0, blue = 1, green = 2, cyan = 3, red = 4, magenta = 5, brown = 6,
                     light_grey = 7;
inline constexpr int dark_grey = 8, light_blue = 9, light_green = 10, light_cyan = 11, light_red = 12;
inline constexpr int light_magenta = 13, yellow = 14, white = 15;
} // namespace color

// One cell: its character, colours, and the shapes that cross it. A blank has no foreground to see: it is
// kept as 7, or as the colour of the shape drawn there.
struct Cell {
    unsigned char ch = ' ';
    unsigned char fg = 7, bg = 0;
    unsigned char shape = 0; // bits of Shape
    bool operator==(const Cell&) const = default;
};
enum Shape : unsigned char { shape_horizontal = 1, shape_vertical = 2, shape_disc = 4 };

void _settextwindow(int l1, int c1, int l2, int c2);
void _settextposition(int l, int c);
void _gettextposition(int* l, int* c);
// Draws from the cursor cell, background filled; the cursor stays, nothing wraps. Control and non-ASCII
// bytes are drawn with the font's own glyphs.
void _outtext(std::string_view text);
void _outchar(char c);
// Draws a run of cells, each with its own colours, from (line, column) of the text window; neither the cursor
// nor the current colours change. The shapes of the given cells are not looked at.
void _outcells(int line, int column, std::span<const Cell> cells);
void _settextcolor(int c);
void _setbgcolor(int c);
// Text in a colour at a cell of the window: the calls above in one.
void outtext_at(int l, int c, int text_color, std::string_view text);
// The same, cut before the last column of the window, which a frame may stand in.
void outtext_inside(int l, int c, int text_color, std::string_view text);
// 1 = current text window, 0 = whole screen; fills with colour 0.
void _clearscreen(int mode);

// ---- lines and shapes, in pixels; recorded in the cells they cross ----------------------------------------

void _moveto(int x, int y);
void _lineto(int x, int y); // in the current text colour; the pen moves there
// A disc; one in colour 0 erases the disc drawn there, and the text that it covered is back.
void _filled_circle(int x, int y, int radius, int c);

// Sets the text window to the box, clears it, draws a frame in `c` through the centres of its border cells
// and leaves `c` as the text colour. Text in such a box starts at line 2, column 3. A box that does not fit
// is moved and clipped into the screen.
void window_hp(int l1, int c1, int l2, int c2, int c);

// A box in screen cells, 1-based, corners included.
struct Box {
    int l1, c1, l2, c2;
};
// The box moved, and where it is too large cut, so that it lies on the screen: where window_hp puts it.
Box fit_box(Box box);

// The screen as it was when this was made, for what boxes have covered since and nobody draws again.
class ScreenCopy {
public:
    ScreenCopy();
    // Does nothing when the window has been opened anew, in another size.
    void put_back() const;

private:
    int width_, height_; // in pixels
    std::vector<Cell> cells_;
    std::vector<unsigned char> pixels_;
};

// ---- the block cursor -------------------------------------------------------------------------------------

void _display_cursor(int l, int c);
void _clean_cursor();

// ---- what is on the screen (tests, screen dumps) ----------------------------------------------------------

const Cell& screen_cell(int line, int column); // 1-based, of the whole screen
// The characters of one line; where a shape is drawn and no character stands, '-', '|', '+' or, for discs,
// 'o'. Bytes that are not printable ASCII show as '?'.
std::string screen_line(int line);
// The golden form: each line after its number and closed by "|"; below it, where not default, a line " fg
// ..." and a line " bg ..." with one character a cell ('.' for the default 7 on 0, else 0-9a-f for the basic
// colours, g-z A-Z for entries 16 to 61, '#' for further ones), trailing '.' left out.
std::string screen_dump();

// Shows at once what has been drawn (progress of a long computation).
void present_screen();

// Forgets the grid's contents and sizes it to _nb_line x _nb_col, the text window to all of it, the colours
// to 7 on 0; called when the window is (re)opened.
void reset_text_screen();

} // namespace kq
