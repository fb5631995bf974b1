// screen: file names in columns, with a cursor.
#include "taxonomy/filename_list.h"

#include "raster/keys.h"
#include "screen/strings.h"
#include "screen/text.h"

#include <algorithm>

namespace kq {

namespace {

constexpr int column_width = 30;
// The window leaves the frame's column out; the names begin at its second one.
constexpr int window_column = 2, left_column = 2;

} // namespace

FilenameList::FilenameList(int first_line, int last_line)
    : first_line_(first_line)
    , last_line_(last_line)
    , rows_(std::max(1, last_line - first_line + 1))
{
}

void FilenameList::set_names(std::span<const std::string> names)
{
    names_ = names;
    cursor_ = std::clamp(cursor_, 0, std::max(0, count() - 1));
}

// How many columns the screen has for these names. What is right of the longest name needs no room.
int FilenameList::columns() const
{
    std::size_t longest = 0;
    for (const std::string& name : names_)
        longest = std::max(longest, name.size());
    const int inside = _nb_col - window_column - left_column + 1,
              last = std::min(static_cast<int>(longest), column_width);
    return std::max(0, inside - last) / column_width + 1;
}

void FilenameList::affich_liste_filename()
{
    const int shown = columns(), column = cursor_ / rows_;
    first_column_ = std::clamp(first_column_, std::max(0, column - shown + 1), column);
    // Columns that are needed no longer, after a deletion, do not leave a gap.
    first_column_ = std::min(first_column_, std::max(0, (count() - 1) / rows_ + 1 - shown));
    _settextwindow(first_line_, window_column, last_line_, _nb_col);
    _setbgcolor(color::black);
    const int first = first_column_ * rows_;
    for (int index = first; index < first + shown * rows_; index++)
        color_case_filename(index, index == cursor_);
}

// Expects the text window of the list. There may be no such name: its place is blank.
void FilenameList::color_case_filename(int index, bool on) const
{
    const int offset = index - first_column_ * rows_;
    const std::string_view name =
        index < count() ? names_[static_cast<std::size_t>(index)] : std::string_view();
    outtext_inside(offset % rows_ + 1, offset / rows_ * column_width + left_column,
                   on ? color::yellow : color::light_grey, padded(name, column_width));
}

void FilenameList::gere_liste_filename(int pressed)
{
    const int third = std::max(1, rows_ / 3);
    const struct {
        int key, step;
    } steps[] = {{key::up, -1},      {key::down, 1},      {key::pgup, -third},
                 {key::pgdn, third}, {key::left, -rows_}, {key::right, rows_}};
    for (const auto& [moving, step] : steps)
        if (pressed == moving) cursor_ = std::clamp(cursor_ + step, 0, std::max(0, count() - 1));
    affich_liste_filename();
}

std::string FilenameList::hidden_part() const
{
    std::string text;
    if (count() > columns() * rows_) text = text_format("%d/%d  ", cursor_ + 1, count());
    if (cursor_ < count() && names_[static_cast<std::size_t>(cursor_)].size() > column_width)
        text += names_[static_cast<std::size_t>(cursor_)];
    return text;
}

} // namespace kq
