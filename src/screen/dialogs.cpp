// screen: modal dialogs: warnings, confirmations, menus, the overwrite question.
#include "screen/dialogs.h"

#include "raster/grx.h"
#include "raster/keys.h"
#include "screen/files.h"
#include "screen/strings.h"
#include "screen/text.h"

#include <algorithm>
#include <cstdio>

namespace kq {

namespace {

constexpr int least_warning_width = 34;
constexpr std::string_view any_key_legend = "Press any key to continue . . .";

void text_rows(int line, int c, const std::vector<std::string>& rows)
{
    const int last = x2_win - x1_win; // the line above the frame's
    for (const std::string& row : rows) {
        if (line <= last) outtext_at(line, 3, c, row);
        line++;
    }
}

// A box centred on the screen, framed in light red, with the message and, two lines below, the legend where
// there is one. What is wider than the screen is broken into several lines, and the box is that much higher.
void open_message_box(std::string_view message, std::string_view legend, int line, int least_width)
{
    _setbgcolor(color::black);
    const int width = std::max(static_cast<int>(message.size()) + 3, least_width);
    const int left = std::max(1, (_nb_col - width - 1) / 2);
    const int right = std::min(left + width, _nb_col);
    const int room = right - left - 3;
    const std::vector<std::string> message_rows = wrap_text(message, room);
    std::vector<std::string> legend_rows;
    if (!legend.empty()) legend_rows = wrap_text(legend, room);

    const int legend_line = 3 + static_cast<int>(message_rows.size());
    const int last = legend.empty() ? legend_line - 1 : legend_line + static_cast<int>(legend_rows.size());
    window_hp(line, left, line + last - 1, right, color::light_red);
    text_rows(2, color::red, message_rows);
    // On a screen too small for all of it, the legend stays.
    const int shown = x2_win - x1_win + 1;
    text_rows(std::min(legend_line, std::max(2, shown - static_cast<int>(legend_rows.size()))),
              color::light_cyan, legend_rows);
}

} // namespace

void ring_bell()
{
    std::fputc('\a', stdout);
    std::fflush(stdout);
}

void affich_avert(std::string_view message, int line)
{
    open_message_box(message, any_key_legend, line, least_warning_width);
    GrKeyRead();
    _clearscreen(1);
}

bool affich_avert_no_key(std::string_view message, int line, std::string_view legend)
{
    open_message_box(message, legend, line, 0);
    present_screen();
    return GrKeyPressed();
}

void affich_progress(std::string_view message, int line, int c1, int c2, int c)
{
    _setbgcolor(color::black);
    window_hp(line, c1, line + 2, c2, c);
    const int room = y2_win - y1_win - 2;
    outtext_at(2, 3, c, message.substr(0, static_cast<std::size_t>(std::max(room, 0))));
    present_screen();
}

// ---- confirmations ----------------------------------------------------------------------------------------

void color_case_confirme(int which, bool highlighted, int column)
{
    const bool yes = which == answer_yes;
    const char* const text = yes ? (highlighted ? "(Yes)" : " Yes ") : (highlighted ? "(No)" : " No ");
    outtext_at(2, yes ? column : column + 8, highlighted ? color::yellow : color::red, text);
}

namespace {

constexpr std::string_view answers_text = "  Yes  /";
constexpr int answers_width = 16; // columns beside the question, frame included

// Opens the box of `confirme`; returns the column of the first answer. A question that leaves no room for
// the answers is broken into several lines, with the answers below it: the text window then starts one
// line above them, so that they are on its line 2 in any case. `box` is all that is to be cleared.
int open_confirmation(std::string_view question, int line, Box& box)
{
    _setbgcolor(color::black);
    const int length = static_cast<int>(question.size());
    const int width = length + answers_width;
    const int left = std::max(1, (_nb_col - width - 1) / 2);
    const int right = std::min(left + width, _nb_col);
    const bool fits = right == left + width;
    std::vector<std::string> rows{std::string(question) + std::string(answers_text)};
    if (!fits) {
        rows = wrap_text(question, right - left - 3);
        rows.emplace_back(answers_text);
    }
    box = fit_box({line, left, line + static_cast<int>(rows.size()) + 1, right});
    // On a screen too small for the whole question its end and the answers are shown.
    const auto shown = static_cast<std::size_t>(std::max(1, box.l2 - box.l1 - 1));
    if (rows.size() > shown) rows.erase(rows.begin(), rows.end() - static_cast<std::ptrdiff_t>(shown));
    window_hp(box.l1, box.c1, box.l2, box.c2, color::light_red);
    text_rows(2, color::red, rows);
    _settextwindow(box.l2 - 2, box.c1, box.l2, box.c2);
    return (fits ? length : 0) + 4;
}

} // namespace

Answer confirme(std::string_view question, int line)
{
    Box box{};
    const int column = open_confirmation(question, line, box);
    const auto close = [&box](Answer answer) {
        _settextwindow(box.l1, box.c1, box.l2, box.c2);
        _clearscreen(1);
        return answer;
    };
    Answer current = answer_no;
    for (;;) {
        color_case_confirme(answer_yes, current == answer_yes, column);
        color_case_confirme(answer_no, current == answer_no, column);
        switch (GrKeyRead()) {
        case 'Y':
        case 'y':
            return close(answer_yes);
        case 'N':
        case 'n':
            return close(answer_no);
        case key::enter:
            return close(current);
        case key::escape:
            return close(answer_escape);
        case key::left:
        case key::right:
        case key::backspace:
            current = current == answer_yes ? answer_no : answer_yes;
            break;
        default:
            break;
        }
    }
}

int confirme_ecrase_file(const std::string& path, int line)
{
    if (!exists(path)) return ok;
    open_message_box("The file " + path + " exists already and will be overwritten",
                     "ENTER:Confirm     ESCAPE:Cancel", line, least_warning_width);
    int answer = 0;
    do
        answer = GrKeyRead();
    while (answer != key::enter && answer != key::escape);
    _clearscreen(1);
    return answer == key::enter ? ok : escaped;
}

// ---- menus ------------------------------------------------------------------------------------------------

void _color_case_option(std::span<const std::string_view> labels, int width, int index, bool highlighted)
{
    outtext_at(index + 2, 3, highlighted ? color::yellow : color::green,
               padded(labels[static_cast<std::size_t>(index)], width));
}

namespace {

// A menu in the current text window. Items that do not fit below one another scroll; what is cut on a narrow
// screen is brought into view with Left and Right.
class Menu {
public:
    Menu(int current, std::span<const std::string_view> labels, int width)
        : labels_(labels)
        , count_(static_cast<int>(labels.size()))
        , current_(std::clamp(current, 0, count_ - 1))
    {
        rows_ = std::max(1, x2_win - x1_win - 1);
        columns_ = std::max(1, std::min(width, y2_win - y1_win - 2));
        hidden_columns_ = std::max(0, width - columns_);
    }

    int run()
    {
        for (;;) {
            draw();
            const int pressed = GrKeyRead();
            if (pressed == key::enter) return current_;
            if (pressed == key::escape) return escaped;
            act(pressed);
        }
    }

private:
    void act(int pressed)
    {
        switch (pressed) {
        case key::up:
            move(-1);
            break;
        case key::down:
            move(1);
            break;
        case key::pgup:
            move(-5);
            break;
        case key::pgdn:
            move(5);
            break;
        case key::left:
            offset_ = std::max(0, offset_ - 8);
            break;
        case key::right:
            offset_ = std::min(hidden_columns_, offset_ + 8);
            break;
        default:
            break;
        }
    }

    void move(int steps) { current_ = ((current_ + steps) % count_ + count_) % count_; }

    void draw()
    {
        first_ = std::clamp(first_, std::max(0, current_ - rows_ + 1), current_);
        visible_.clear();
        for (int i = first_; i < std::min(first_ + rows_, count_); i++) {
            const std::string_view label = labels_[static_cast<std::size_t>(i)];
            visible_.push_back(label.substr(std::min(label.size(), static_cast<std::size_t>(offset_)),
                                            static_cast<std::size_t>(columns_)));
        }
        for (int i = 0; i < static_cast<int>(visible_.size()); i++)
            _color_case_option(visible_, columns_, i, first_ + i == current_);
    }

    std::span<const std::string_view> labels_;
    int count_;
    int current_;
    int rows_ = 1, columns_ = 1; // room inside the box
    int first_ = 0;              // first item shown
    int offset_ = 0;             // columns scrolled away on the left
    int hidden_columns_ = 0;
    std::vector<std::string_view> visible_;
};

} // namespace

int _choice_option(int line, int current, std::span<const std::string_view> labels, int width)
{
    if (labels.empty()) return escaped;
    _setbgcolor(color::black);
    const int left = std::max(1, (_nb_col - width - 2) / 2);
    window_hp(line, left, line + static_cast<int>(labels.size()) + 1, left + width + 2, color::light_green);
    const int chosen = Menu(current, labels, width).run();
    _clearscreen(1);
    return chosen;
}

int choose_in_window(std::span<const std::string_view> labels, int width)
{
    return labels.empty() ? escaped : Menu(0, labels, width).run();
}

} // namespace kq
