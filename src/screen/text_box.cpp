// screen: a text in a box at the top of the screen, until a key is pressed.
#include "screen/text_box.h"

#include "raster/grx.h"
#include "raster/keys.h"
#include "screen/strings.h"
#include "screen/text.h"

#include <algorithm>
#include <vector>

namespace kq {

namespace {

constexpr int text_column = 3;
constexpr int first_row_line = 2;

class TextBox {
public:
    TextBox(std::span<const std::string> rows, std::string_view legend)
        : rows_(rows)
        , legend_(wrap_text(legend, text_box_width()))
        , shown_(std::min(static_cast<int>(rows.size()), text_box_height(legend)))
    {
        _setbgcolor(color::black);
        window_hp(1, 1, shown_ + 3 + static_cast<int>(legend_.size()), _nb_col, color::cyan);
        for (int line = first_row_line + shown_ + 1; const std::string& row : legend_)
            outtext_at(line++, text_column, color::light_cyan, row);
    }

    int run()
    {
        for (;;) {
            draw();
            const int pressed = GrKeyRead();
            if (!scroll(pressed)) return pressed;
        }
    }

private:
    int last_first() const { return static_cast<int>(rows_.size()) - shown_; }

    void draw() const
    {
        for (int i = 0; i < shown_; i++) {
            const auto& row = rows_[static_cast<std::size_t>(first_ + i)];
            outtext_at(first_row_line + i, text_column, color::light_green, padded(row, text_box_width()));
        }
        if (last_first() == 0) return;
        const std::string place = text_format("%d-%d of %d   Up, Down, PgUp, PgDn, Home, End", first_ + 1,
                                              first_ + shown_, static_cast<int>(rows_.size()));
        outtext_at(first_row_line + shown_, text_column, color::light_cyan, padded(place, text_box_width()));
    }

    // False when the key does not scroll.
    bool scroll(int pressed)
    {
        if (last_first() == 0) return false;
        int first = first_;
        switch (pressed) {
        case key::up:
            first--;
            break;
        case key::down:
            first++;
            break;
        case key::pgup:
            first -= shown_;
            break;
        case key::pgdn:
            first += shown_;
            break;
        case key::home:
            first = 0;
            break;
        case key::end:
            first = last_first();
            break;
        default:
            return false;
        }
        first_ = std::clamp(first, 0, last_first());
        return true;
    }

    std::span<const std::string> rows_;
    std::vector<std::string> legend_;
    int shown_;
    int first_ = 0; // the first row shown
};

} // namespace

int text_box_width()
{
    return std::max(1, _nb_col - 4);
}

int text_box_height(std::string_view legend)
{
    const int legend_rows = static_cast<int>(wrap_text(legend, text_box_width()).size());
    return std::max(1, _nb_line - 3 - legend_rows);
}

int show_text_box(std::span<const std::string> rows, std::string_view legend)
{
    const int pressed = TextBox(rows, legend).run();
    _clearscreen(1);
    return pressed;
}

} // namespace kq
