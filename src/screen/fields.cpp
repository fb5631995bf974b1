// screen: one-line input fields and the file-name prompt.
#include "screen/fields.h"

#include "raster/grx.h"
#include "raster/keys.h"
#include "screen/dialogs.h"
#include "screen/files.h"
#include "screen/prompt_field.h"
#include "screen/strings.h"
#include "screen/text.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdlib>

namespace kq {

namespace {

// A text being edited on the screen: its insertion point and the part of it that is shown.
class LineField {
public:
    LineField(std::string& text, int max_length, int line, int column)
        : text_(text)
        , limit_(static_cast<std::size_t>(std::max(max_length, 0)))
        , line_(line)
        , column_(column)
        , cursor_(text.size())
    {
        const int width = std::min(y2_win, _nb_col - 1) - y1_win + 1; // of the window that is on the screen
        // A field placed beyond the window's edge (a box made for a wider screen) moves into it.
        if (column_ >= width) column_ = std::max(1, width - std::min(max_length + 1, 7));
        room_ = static_cast<std::size_t>(std::max(1, width - column_));
        drawn_ = std::min(text.size(), room_); // a field that was left here and is entered again
    }

    // Shows the text with the block cursor and waits for a key.
    int read_key()
    {
        // The insertion point may stand behind the last character, also in the last cell.
        const std::size_t reach = limit_ <= room_ ? limit_ : room_ - 1;
        offset_ = std::min(offset_, cursor_);
        if (cursor_ > offset_ + reach) offset_ = cursor_ - reach;
        draw(color::yellow);
        _display_cursor(line_, column_ + static_cast<int>(cursor_ - offset_));
        const int pressed = GrKeyRead();
        _clean_cursor();
        return pressed;
    }

    void insert(int character)
    {
        if (text_.size() >= limit_) return;
        text_.insert(cursor_, 1, static_cast<char>(character));
        cursor_++;
    }

    // Moves and deletions; other keys do nothing.
    void edit(int pressed)
    {
        switch (pressed) {
        case key::backspace:
            if (cursor_ > 0) text_.erase(--cursor_, 1);
            break;
        case key::del:
            if (cursor_ < text_.size()) text_.erase(cursor_, 1);
            break;
        case key::left:
            if (cursor_ > 0) cursor_--;
            break;
        case key::right:
            if (cursor_ < text_.size()) cursor_++;
            break;
        case key::home:
            cursor_ = 0;
            break;
        case key::end:
            cursor_ = text_.size();
            break;
        default:
            break;
        }
    }

    // Leaves the text on the screen as a field at rest.
    void leave()
    {
        offset_ = 0;
        draw(color::light_green);
    }

private:
    void draw(int c)
    {
        std::string shown = text_.substr(offset_, room_);
        const std::size_t length = shown.size();
        shown.resize(std::max(length, drawn_), ' '); // blanks over what was there before
        drawn_ = length;
        outtext_at(line_, column_, c, shown);
    }

    std::string& text_;
    std::size_t limit_; // characters
    int line_, column_;
    std::size_t cursor_;     // insertion point, an index into the text
    std::size_t offset_ = 0; // first character shown
    std::size_t room_ = 1;   // cells
    std::size_t drawn_;      // characters on the screen
};

bool ends_text(int pressed)
{
    switch (pressed) {
    case key::enter:
    case key::escape:
    case key::tab:
    case key::shift_tab:
    case key::up:
    case key::down:
        return true;
    default:
        return (pressed >= key::f1 && pressed <= key::f10) ||
               (pressed >= key::shift_f1 && pressed <= key::shift_f10);
    }
}

bool ends_number(int pressed)
{
    return pressed == key::enter || pressed == key::up || pressed == key::down ||
           (pressed >= key::f1 && pressed <= key::f9);
}

} // namespace

int input_texte(std::string& text, int max_length, int line, int column)
{
    LineField field(text, max_length, line, column);
    for (;;) {
        const int pressed = field.read_key();
        if (ends_text(pressed)) {
            field.leave();
            return pressed;
        }
        if (pressed >= ' ' && pressed <= '~')
            field.insert(pressed);
        else
            field.edit(pressed);
    }
}

// ---- numbers ----------------------------------------------------------------------------------------------

namespace {

constexpr int int_field_length = 6, float_field_length = 12;

// At most one "-", only in front; at most one "." where allowed; digits otherwise.
bool number_shape(std::string_view text, bool with_point)
{
    if (text.starts_with('-')) text.remove_prefix(1);
    const auto points = std::count(text.begin(), text.end(), '.');
    return points <= (with_point ? 1 : 0) && text.find_first_not_of("0123456789.") == std::string_view::npos;
}

// Edits a number's text until `store` accepts it or ESCAPE is pressed; `bounds` says which numbers it
// accepts.
template <class Store>
int input_number(std::string text, std::string_view extra_characters, int max_length, int line, int column,
                 Store store, const std::string& bounds)
{
    LineField field(text, max_length, line, column);
    for (;;) {
        const int pressed = field.read_key();
        if (pressed == key::escape || (ends_number(pressed) && store(text))) {
            field.leave();
            return pressed;
        }
        if (ends_number(pressed)) refuse_field(bounds);
        const bool character = pressed >= '0' && pressed <= '9';
        if (character ||
            (pressed < 127 && extra_characters.find(static_cast<char>(pressed)) != std::string_view::npos))
            field.insert(pressed);
        else
            field.edit(pressed);
    }
}

} // namespace

int verif_int(std::string_view text, int& value, int min, int max)
{
    if (!number_shape(text, false)) return -1;
    errno = 0;
    const long number = std::strtol(std::string(text).c_str(), nullptr, 10);
    if (errno != 0 || number < min || number > max) return -1;
    value = static_cast<int>(number);
    return 0;
}

int verif_float(std::string_view text, float& value, float min, float max)
{
    if (!number_shape(text, true)) return -1;
    // Compared as what is stored, so that "0.7" is within a bound of 0.7f.
    const float number = static_cast<float>(std::strtod(std::string(text).c_str(), nullptr));
    if (!(number >= min && number <= max)) return -1;
    value = number;
    return 0;
}

int input_int(int& value, int min, int max, int line, int column)
{
    return input_number(
        value == 0 ? "" : text_format("%d", value), "-", int_field_length, line, column,
        [&](std::string_view text) { return verif_int(text, value, min, max) == 0; },
        text_format("%d to %d", min, max));
}

int input_float(float& value, float min, float max, int line, int column)
{
    const bool zero = value >= 0 && value <= 0;
    return input_number(
        zero ? "" : text_format("%.2f", static_cast<double>(value)), "-.", float_field_length, line, column,
        [&](std::string_view text) { return verif_float(text, value, min, max) == 0; },
        text_format("%g to %g", static_cast<double>(min), static_cast<double>(max)));
}

// ---- single fields ----------------------------------------------------------------------------------------

namespace {

template <class Input>
bool edited_until_enter(Input input)
{
    for (;;) {
        const int pressed = input();
        if (pressed == key::enter) return true;
        if (pressed == key::escape) return false;
    }
}

} // namespace

bool enter_texte(std::string& text, int max_length, int line, int column)
{
    return edited_until_enter([&] { return input_texte(text, max_length, line, column); });
}

bool enter_int(int& value, int min, int max, int line, int column)
{
    return edited_until_enter([&] { return input_int(value, min, max, line, column); });
}

// ---- file names -------------------------------------------------------------------------------------------

const std::string_view forbidden_in_file_names = " \"\\+=[]|*:/;,?\xE0\x15";

NameCheck check_file_name(std::string& name, std::string_view extension)
{
    const std::size_t point = name.find('.');
    // A name of nothing but its extension would be hidden from every list.
    if (name.empty() || point == 0) return {"You must give a file name", false};
    if (name.find_first_of(forbidden_in_file_names) != std::string::npos)
        return {"These characters " + std::string(forbidden_in_file_names) +
                    " are unauthorized in a file name",
                false};
    const std::string ending = "." + std::string(extension);
    if (point != std::string::npos && name.substr(point) != ending) {
        name.replace(point, std::string::npos, ending);
        return {"The file name extension must be " + std::string(extension), false};
    }
    const bool added = point == std::string::npos;
    if (name.size() + (added ? ending.size() : 0) > max_file_name_length)
        return {text_format("A file name has at most %d characters", max_file_name_length), false};
    if (added) name += ending;
    return {"", added};
}

namespace {

// Opens the prompt's box; returns the column of its field.
int open_name_box(std::string_view prompt, int line)
{
    _setbgcolor(color::black);
    const int field = static_cast<int>(prompt.size()) + 4;
    const int width = field + max_file_name_length;
    const int left = std::max(1, (_nb_col - width - 1) / 2);
    window_hp(line, left, line + 2, std::min(left + width, _nb_col), color::cyan);
    return outtext_prompt(2, prompt, field);
}

// Whether the mode lets the file be used; says why not.
bool name_allowed(const std::string& path, NameMode mode, int line)
{
    if (mode == NameMode::write) return confirme_ecrase_file(path, line) == ok;
    if (mode == NameMode::read && !exists(path)) {
        affich_avert("The file " + path + " does not exist", line);
        return false;
    }
    return true;
}

} // namespace

int saisir_nom_fichier(std::string_view prompt, std::string& name, std::string_view extension,
                       std::string_view directory, NameMode mode, int line)
{
    std::string edited = name;
    for (;;) {
        const int column = open_name_box(prompt, line);
        const bool entered = enter_texte(edited, max_file_name_length, 2, column);
        _clearscreen(1);
        if (!entered) return escaped;

        const NameCheck check = check_file_name(edited, extension);
        if (!check.complaint.empty()) {
            affich_avert(check.complaint, line);
            continue;
        }
        if (name_allowed(std::string(directory) + edited, mode, line)) {
            name = edited;
            return ok;
        }
        if (check.extension_added) edited.resize(edited.size() - extension.size() - 1);
    }
}

} // namespace kq
