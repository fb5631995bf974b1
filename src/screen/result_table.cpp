// screen: a table of results in a box.
#include "screen/result_table.h"

#include "raster/grx.h"
#include "raster/keys.h"
#include "screen/strings.h"

#include <algorithm>
#include <span>
#include <string>
#include <utility>

namespace kq {

namespace {

constexpr int sideways_step = 8;

int width_of(const std::vector<TableLine>& lines)
{
    std::size_t width = 0;
    for (const auto& line : lines)
        width = std::max(width, line.size());
    return static_cast<int>(width);
}

int count(const std::vector<TableLine>& lines)
{
    return static_cast<int>(lines.size());
}

} // namespace

void put_text(TableLine& line, int column, int text_color, std::string_view text, int background)
{
    const auto first = static_cast<std::size_t>(column - 1);
    line.resize(std::max(line.size(), first + text.size()));
    for (std::size_t i = 0; i < text.size(); i++)
        line[first + i] = {.ch = static_cast<unsigned char>(text[i]),
                           .fg = static_cast<unsigned char>(text_color),
                           .bg = static_cast<unsigned char>(background)};
}

ResultTableView::ResultTableView(ResultTable contents)
    : table_(std::move(contents))
{
    const int around = 2 + count(table_.headings) + count(table_.legend); // the frame's lines and these
    const int most = std::max(_nb_line - table_.lines_kept_free, 1);
    const int height = std::min(around + count(table_.lines), most);
    box_ = fit_box({.l1 = table_.first_line,
                    .c1 = table_.first_column,
                    .l2 = table_.first_line + height - 1,
                    .c2 = table_.last_column});
    const int below = box_.l2 - most; // lines of the box that are to be kept free
    if (below > 0) {
        box_.l1 -= below;
        box_.l2 -= below;
    }
    rows_ = std::max(height - around, 1);
    last_first_ = std::max(count(table_.lines) - rows_, 0);
    columns_ = std::max(box_.c2 - box_.c1 - 1, 1);
    const int width =
        std::max({width_of(table_.headings), width_of(table_.lines), width_of(table_.legend)}) - 1;
    last_offset_ = std::max(width - columns_, 0);
}

void ResultTableView::draw_line(int line, const TableLine& cells) const
{
    const auto first = std::min(cells.size(), static_cast<std::size_t>(1 + offset_));
    const auto shown = std::span(cells).subspan(first);
    _outcells(line, 2, shown.first(std::min(shown.size(), static_cast<std::size_t>(columns_))));
}

// Over the lower frame, so that it costs no line.
void ResultTableView::draw_scroll_note() const
{
    const bool beside_field = table_.lines_kept_free > 0;
    std::string note;
    if (last_first_ > 0)
        note = text_format(" %d-%d of %d (%s) ", first_ + 1, first_ + rows_, count(table_.lines),
                           beside_field ? "Up, Down" : "Up, Down, PgUp, PgDn");
    if (last_offset_ > 0 && !beside_field) note += " (Left, Right) ";
    if (!note.empty()) outtext_inside(box_.l2 - box_.l1 + 1, 3, color::light_cyan, note);
}

void ResultTableView::draw()
{
    _setbgcolor(color::black);
    window_hp(box_.l1, box_.c1, box_.l2, box_.c2, table_.frame_color);
    int line = 2;
    for (const auto& cells : table_.headings)
        draw_line(line++, cells);
    for (int i = first_; i < std::min(first_ + rows_, count(table_.lines)); i++)
        draw_line(line++, table_.lines[static_cast<std::size_t>(i)]);
    for (const auto& cells : table_.legend)
        draw_line(line++, cells);
    draw_scroll_note();
}

bool ResultTableView::scroll(int pressed)
{
    int lines = 0, columns = 0;
    switch (pressed) {
    case key::up:
        lines = -1;
        break;
    case key::down:
        lines = 1;
        break;
    case key::pgup:
        lines = -rows_;
        break;
    case key::pgdn:
        lines = rows_;
        break;
    case key::home:
        lines = -last_first_;
        break;
    case key::end:
        lines = last_first_;
        break;
    case key::left:
        columns = -sideways_step;
        break;
    case key::right:
        columns = sideways_step;
        break;
    default:
        break;
    }
    first_ = std::clamp(first_ + lines, 0, last_first_);
    offset_ = std::clamp(offset_ + columns, 0, last_offset_);
    return (lines != 0 && last_first_ > 0) || (columns != 0 && last_offset_ > 0);
}

int ResultTableView::wait()
{
    int pressed = 0;
    do {
        draw();
        pressed = GrKeyRead();
    } while (scroll(pressed));
    return pressed;
}

} // namespace kq
