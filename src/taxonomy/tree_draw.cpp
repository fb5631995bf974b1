// screen: drawing the tree.
#include "taxonomy/tree_draw.h"

#include "core/store.h"
#include "screen/strings.h"
#include "screen/text.h"
#include "taxonomy/frame.h"
#include "taxonomy/frame_layout.h"
#include "taxonomy/group_colours.h"
#include "taxonomy/selection.h"
#include "taxonomy/tree_walk.h"

#include <algorithm>
#include <limits>
#include <string_view>

namespace kq {

namespace {

constexpr int first_tree_line = 3; // line 2 names the current node
constexpr int disc_radius = 3;
constexpr int arrow_length = 25, arrow_head = 4;
constexpr int full_width = 80;     // columns that the layout is made for
constexpr int widest_field = 9999; // the largest number in the four columns of a count

int scrolled_rows = 0; // rows of the tree above its area

int last_tree_line()
{
    return _nb_line - 1;
}

void use_whole_screen()
{
    _settextwindow(1, 1, _nb_line, _nb_col);
}

// Text from a cell of the screen up to column `last` at most.
void text_at(int line, int column, int c, std::string_view text, int last)
{
    const int room = std::max(0, last - column + 1);
    outtext_at(line, column, c, text.substr(0, static_cast<std::size_t>(room)));
}

// ---- from the tree to the screen --------------------------------------------------------------------------

// A row of the tree's window, which begins at line 2, is one line lower on the screen.
int screen_line_of(int y)
{
    return tree_row(y) + 1 - scrolled_rows;
}

bool in_tree_area(int y)
{
    const int line = screen_line_of(y);
    return line >= first_tree_line && line <= last_tree_line();
}

// The pixel of a tree's y; the tree begins two lines below the top of the screen.
int pixel_y(int y)
{
    return y + (2 - scrolled_rows) * _gr_size_x;
}

int first_pixel_y()
{
    return (first_tree_line - 1) * _gr_size_x;
}

int last_pixel_y()
{
    return last_tree_line() * _gr_size_x - 1;
}

// Lines in the current colour, in pixels, clipped to the tree's area.
void horizontal_line(int x1, int x2, int y)
{
    const int last_x = _nb_col * _gr_size_y - 1;
    if (y < first_pixel_y() || y > last_pixel_y() || std::max(x1, x2) < 0 || std::min(x1, x2) > last_x)
        return;
    _moveto(std::clamp(x1, 0, last_x), y);
    _lineto(std::clamp(x2, 0, last_x), y);
}

void vertical_line(int x, int y1, int y2)
{
    if (y1 > y2) std::swap(y1, y2);
    y1 = std::max(y1, first_pixel_y());
    y2 = std::min(y2, last_pixel_y());
    if (y1 > y2 || x < 0 || x >= _nb_col * _gr_size_y) return;
    _moveto(x, y1);
    _lineto(x, y2);
}

// ---- leaves and collapsed heads ---------------------------------------------------------------------------

struct Counts {
    int total = 0, selected = 0;
};

Counts counts_below(const node& top)
{
    Counts counts;
    compute_specie_sous_arbre(top, counts.total, counts.selected);
    return counts;
}

// "(selected/total)" in its columns; numbers of five digits take the places of the parentheses.
void selected_at(int line, const Counts& counts, int c)
{
    const bool wide = counts.total > widest_field;
    text_at(line, counts_column() + (wide ? 0 : 1), c, text_format(wide ? "%5d" : "%4d", counts.selected),
            _nb_col);
}

void counts_at(int line, const Counts& counts, int selected_colour)
{
    const int column = counts_column();
    const bool wide = counts.total > widest_field;
    text_at(line, column, color::light_grey, wide ? "     /     " : "(    /    )", _nb_col);
    selected_at(line, counts, selected_colour);
    text_at(line, column + 6, color::light_green, text_format("%4d", counts.total), _nb_col);
}

// What of the name fits before the counts, and before the arrow where the columns are few.
std::string_view shown_name(const node& n)
{
    int room = counts_column() - name_column();
    if (!n.leaf() && room < group_name_size) room -= arrow_length / _gr_size_y + 1;
    return group_name(n.no).substr(0, static_cast<std::size_t>(std::max(room, 1)));
}

void draw_arrow(const node& head, int c)
{
    const int name_width = static_cast<int>(shown_name(head).size()) * _gr_size_y;
    const int x = maxgraph + _gr_size_y + name_width + 3;
    // After a long name the arrow is as short as it takes to leave the counts readable.
    const int before_counts = (counts_column() - 1) * _gr_size_y - 1;
    const int tip = std::clamp(before_counts, x + arrow_head, x + arrow_length);
    const int y = pixel_y(head.y);
    _settextcolor(c);
    horizontal_line(x, tip, y);
    for (int i = 1; i <= arrow_head; i++)
        vertical_line(tip - i, y - i, y + i);
}

void draw_name(const node& n, bool highlighted)
{
    _settextposition(screen_line_of(n.y), name_column());
    select_color_groupe(n.no);
    select_bk_color_groupe(n.no, highlighted);
    _outtext(shown_name(n));
    _setbgcolor(color::black);
}

void draw_entry(const node& n)
{
    if (!in_tree_area(n.y)) return;
    draw_name(n, false);
    const Counts counts = counts_below(n);
    if (counts.total != 0)
        counts_at(screen_line_of(n.y), counts, color::light_grey);
    else
        text_at(screen_line_of(n.y), counts_column() + 9, color::light_green, "0", _nb_col);
    if (!n.leaf()) draw_arrow(n, color::white);
}

void redraw_selected(const node& n, int c, int arrow_colour)
{
    if (!in_tree_area(n.y)) return;
    if (const Counts counts = counts_below(n); counts.total != 0) selected_at(screen_line_of(n.y), counts, c);
    if (!n.leaf()) draw_arrow(n, arrow_colour);
}

// ---- joints -----------------------------------------------------------------------------------------------

// The lines from an expanded node to its children.
void draw_joint(const node& n)
{
    const int y2 = pixel_y(n.child2->y), y1 = pixel_y(n.child1->y);
    _settextcolor(color::white);
    horizontal_line(n.child2->x, n.x, y2);
    horizontal_line(n.child1->x, n.x, y1);
    vertical_line(n.x, y2, y1);
}

// A disc may have covered more than its joint where the cells are small.
void restore_joint(const node& n)
{
    const node* view_root = p_arbre[static_cast<std::size_t>(no_arbre)];
    if (&n != view_root) draw_joint(*n.parent);
    draw_joint(n);
    const int y = pixel_y(n.y);
    vertical_line(n.x, y - 4, y + 3);
    horizontal_line(n.x - 3, n.x, y);
}

// ---- the current node -------------------------------------------------------------------------------------

// Line 2 up to a column.
void show_on_status_line(const char* kind, const node& n, int last_column)
{
    const std::string text = text_format("%s: %-30s", kind, groupe[n.no]);
    text_at(2, 1, color::yellow, padded(text, last_column), last_column);
}

void activate_joint(const node& n, bool on)
{
    const int x = n.x, y = pixel_y(n.y);
    if (in_tree_area(n.y) && x >= 0 && x < _nb_col * _gr_size_y) {
        _filled_circle(x, y, disc_radius, on ? color::light_green : color::black);
        if (!on) restore_joint(n);
    }
    if (!on) return;
    show_on_status_line("Node", n, counts_column() - 1);
    if (const Counts counts = counts_below(n); counts.total != 0)
        counts_at(2, counts, color::yellow);
    else
        text_at(2, counts_column(), color::light_green, "         0 ", _nb_col);
}

void activate_entry(const node& n, bool on)
{
    if (in_tree_area(n.y)) draw_name(n, on);
    redraw_selected(n, on ? color::yellow : color::light_grey, on ? color::yellow : color::white);
    if (on) show_on_status_line("Leaf", n, std::min(_nb_col, full_width));
}

// ---- the lines around the tree ----------------------------------------------------------------------------

// Where the numbers of line 1 stand; a narrow window has no room for the words between them.
constexpr int heading_numbers = 53, heading_words = 59;

int numbers_column()
{
    return _nb_col >= full_width ? heading_numbers : _nb_col - 10;
}

void affich_heading(int ens)
{
    const auto e = static_cast<std::size_t>(ens);
    text_at(1, 1, color::white, text_format("Ensemble %2d: %-30s", ens + 1, ens_names[e]),
            numbers_column() - 1);
    if (_nb_col >= full_width)
        text_at(1, heading_words, color::light_cyan, text_format("selected species/%4d", nb_spec), _nb_col);
    else
        text_at(1, numbers_column() + 5, color::light_cyan, text_format("/%4d", nb_spec), _nb_col);
}

constexpr std::string_view legend =
    "F1:Help F2:All F3:ALI F4:Deselect F5:List F6:Cupboard F7:Archive F8:Load F9:Begin";

// ---- the tree ---------------------------------------------------------------------------------------------

void draw_subtree(const node& top)
{
    if (!top.expanded()) return draw_entry(top);
    draw_joint(top);
    draw_subtree(*top.child2);
    draw_subtree(*top.child1);
}

void redraw_counts(const node& top)
{
    if (!top.expanded()) return redraw_selected(top, color::light_grey, color::white);
    redraw_counts(*top.child2);
    redraw_counts(*top.child1);
}

} // namespace

void trace_tree(const node& top)
{
    use_whole_screen();
    draw_subtree(top);
}

void affich_nb_ret_gro(const node& top)
{
    use_whole_screen();
    redraw_counts(top);
}

void active_node(bool on)
{
    use_whole_screen();
    if (pcour->expanded())
        activate_joint(*pcour, on);
    else
        activate_entry(*pcour, on);
}

void affich_nb_retenu()
{
    use_whole_screen();
    text_at(1, numbers_column(), color::light_cyan, text_format("%4d ", nb_retenu), numbers_column() + 4);
}

void affich_ecran_arbre(TreeRedraw mode, const node& root, int ens)
{
    if (mode == TreeRedraw::nothing) return;
    _setbgcolor(color::black);
    if (mode == TreeRedraw::tree) {
        _settextwindow(first_tree_line, 1, last_tree_line(), _nb_col);
        _clearscreen(1);
    } else if (mode == TreeRedraw::screen) {
        _clearscreen(0);
    }
    use_whole_screen();
    affich_heading(ens);
    affich_nb_retenu();
    text_at(_nb_line, 1, color::light_cyan, legend, _nb_col);
    trace_tree(root);
}

// ---- scrolling --------------------------------------------------------------------------------------------

namespace {

struct Extent {
    int first = std::numeric_limits<int>::max(), last = std::numeric_limits<int>::min();
};

// The screen lines that the view would need without scrolling.
void measure(const node& top, Extent& lines)
{
    const int line = tree_row(top.y) + 1;
    lines.first = std::min(lines.first, line);
    lines.last = std::max(lines.last, line);
    if (!top.expanded()) return;
    measure(*top.child2, lines);
    measure(*top.child1, lines);
}

} // namespace

bool bring_into_view(const node& root)
{
    if (in_tree_area(pcour->y)) return false;
    Extent lines;
    measure(root, lines);
    const int least = std::min(0, lines.first - first_tree_line);
    const int most = std::max(least, lines.last - last_tree_line());
    const int middle = (first_tree_line + last_tree_line()) / 2;
    const int before = scrolled_rows;
    scrolled_rows = std::clamp(tree_row(pcour->y) + 1 - middle, least, most);
    return scrolled_rows != before;
}

void forget_scrolling()
{
    scrolled_rows = 0;
}

} // namespace kq
