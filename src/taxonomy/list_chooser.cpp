// screen: choosing a species list to load; renaming and deleting lists.
#include "taxonomy/list_chooser.h"

#include "raster/grx.h"
#include "raster/keys.h"
#include "screen/dialogs.h"
#include "screen/directories.h"
#include "screen/fields.h"
#include "screen/files.h"
#include "screen/prompt_field.h"
#include "screen/strings.h"
#include "screen/text.h"
#include "taxonomy/list_saving.h"
#include "taxonomy/species_lists.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <string_view>

namespace kq {

std::vector<std::string> file_LIS;
constinit int nb_file_LIS = 0;

namespace {

constexpr int warning_line = 5, repeated_line = 10;

std::string path_of(int index)
{
    return dir_DATA + file_LIS[static_cast<std::size_t>(index)];
}

void warn(const std::string& message)
{
    affich_avert(message, warning_line);
}

} // namespace

// ---- loading ----------------------------------------------------------------------------------------------

void charge_file_LIS(const LisFile& list, bool without_accession)
{
    // A list that is joined from others may repeat thousands: the first few are named, the others counted.
    constexpr std::size_t named_at_most = 5;
    const MatchedNames matched = select_listed(list.names, without_accession);
    const std::size_t repeated = matched.repeated.size(), named = std::min(repeated, named_at_most);
    for (std::size_t i = 0; i < named; i++)
        affich_avert("This species, " + std::string(identifier(matched.repeated[i])) +
                         ", is present more than one times",
                     repeated_line);
    if (repeated > named)
        affich_avert(text_format("%d more species are present more than one times",
                                 static_cast<int>(repeated - named)),
                     repeated_line);
    if (matched.unknown > 0)
        warn(text_format("There are %d species of the list on %d which are not in the file", matched.unknown,
                         list.count));
}

// ---- one list ---------------------------------------------------------------------------------------------

namespace {

constexpr std::string_view confirm_legend =
    "ENTER:Confirm  ESCAPE:Cancel  SUPPR:Delete  F2:Rename  F3:Without @";

// The box with what the list says of itself, its file's name on the frame. What is wider than the box is
// broken into several lines, and the box is that much higher.
void show_list(const std::string& name, const LisFile& list)
{
    constexpr int first_line = 4, first_column = 3, last_column = 78;
    constexpr std::size_t most_rows = 3; // of one text
    const Box box = fit_box({first_line, first_column, first_line + 6, last_column});
    struct Row {
        int color;
        std::string text;
    };
    std::vector<Row> rows;
    const auto add = [&](int c, std::string_view text, std::size_t most) {
        auto pieces = wrap_text(text, box.c2 - box.c1 - 3);
        pieces.resize(std::min(pieces.size(), most));
        for (std::string& piece : pieces)
            rows.push_back({c, std::move(piece)});
    };
    add(color::light_green, list.created, most_rows);
    add(color::light_green, list.title, most_rows);
    add(color::light_green, text_format("There are %d species", list.count), most_rows);
    add(color::light_red, list.remark, most_rows);
    add(color::light_cyan, confirm_legend, confirm_legend.size());

    _setbgcolor(color::black);
    window_hp(first_line, first_column, first_line + static_cast<int>(rows.size()) + 1, last_column,
              color::cyan);
    outtext_inside(1, 3, color::light_green, ' ' + name + ' ');
    for (int line = 2; const Row& row : rows)
        outtext_inside(line++, 3, row.color, row.text);
}

int load(const LisFile& list, bool without_accession)
{
    if (list.names.empty()) { // no list that was saved is: the selection is worth more
        warn(list.remark);
        return escaped;
    }
    charge_file_LIS(list, without_accession);
    return list_loaded;
}

void delete_list(int index)
{
    std::string problem = cannot_write(dir_DATA, 0);
    if (problem.empty() && std::remove(path_of(index).c_str()) != 0 && errno != ENOENT)
        problem = file_problem("Problem in deleting file", path_of(index), errno);
    if (!problem.empty()) warn(problem);
}

} // namespace

int confirme_charger_file_LIS(int index)
{
    const LisFile list = read_lis(path_of(index));
    if (!list.error.empty()) {
        warn(list.error);
        return escaped;
    }
    show_list(file_LIS[static_cast<std::size_t>(index)], list);
    for (;;) {
        const int pressed = GrKeyRead();
        switch (pressed) {
        case key::enter:
        case key::f3:
            _clearscreen(1);
            return load(list, pressed == key::f3);
        case key::del:
            _clearscreen(1);
            delete_list(index);
            return escaped;
        case key::f2:
            rename_file_LIS(index);
            return escaped;
        case key::escape:
            _clearscreen(1);
            return escaped;
        default:
            break;
        }
    }
}

namespace {

std::string new_name_fault(const std::string& name)
{
    if (const std::string_view fault = list_name_fault(name); !fault.empty()) return std::string(fault);
    if (name.find('.') != std::string::npos) return "A list's name has no point";
    if (exists(list_path(name))) return "A list of this name exists already";
    return "";
}

} // namespace

void rename_file_LIS(int index)
{
    std::string name, fault;
    do {
        _setbgcolor(color::black);
        window_hp(5, 10, 7, 140, color::cyan);
        const int field = outtext_prompt(2, text_format("New name (%d characters):", max_list_name), 29);
        if (!fault.empty()) refuse_field(fault);
        if (!enter_texte(name, max_list_name, 2, field)) return _clearscreen(1);
        fault = new_name_fault(name);
    } while (!fault.empty());
    _clearscreen(1);
    if (std::rename(path_of(index).c_str(), list_path(name).c_str()) != 0)
        warn(file_problem("Problem in changing name of file", path_of(index), errno));
}

// ---- the chooser ------------------------------------------------------------------------------------------

TreeRedraw choice_file_LIS()
{
    ListChooser chooser;
    if (nb_file_LIS == 0) {
        warn("There are not yet any lists of species archived");
        return TreeRedraw::tree;
    }
    return chooser.run();
}

ListChooser::ListChooser()
    : view_(3, _nb_line - 2)
{
    read_names();
}

ListChooser::~ListChooser()
{
    file_LIS = {};
    nb_file_LIS = 0;
}

TreeRedraw ListChooser::run()
{
    affich_screen();
    view_.affich_liste_filename();
    while (!closed_) {
        affich_hidden_part();
        const int pressed = GrKeyRead();
        if (const auto* binding = list_keys.find(pressed)) (this->*binding->run)(pressed);
    }
    return TreeRedraw::screen;
}

void ListChooser::read_names()
{
    file_LIS = read_name_file(dir_DATA, lis_extension);
    nb_file_LIS = static_cast<int>(file_LIS.size());
    view_.set_names(file_LIS);
}

void ListChooser::affich_screen() const
{
    _setbgcolor(color::black);
    window_hp(1, 1, _nb_line, _nb_col, color::light_grey);
    outtext_inside(2, std::min(10, std::max(3, _nb_col - 43)), color::magenta,
                   "List of files containing a list of species:");
}

// The line below the list.
void ListChooser::affich_hidden_part() const
{
    constexpr std::string_view legend = "ESCAPE:Cancel";
    constexpr int left = 3, right = left + static_cast<int>(legend.size()) + 2;
    _settextwindow(1, 1, _nb_line, _nb_col);
    _setbgcolor(color::black);
    outtext_inside(_nb_line - 1, left, color::light_cyan, legend);
    outtext_inside(_nb_line - 1, right, color::light_green, padded(view_.hidden_part(), _nb_col));
}

void ListChooser::move(int pressed)
{
    view_.gere_liste_filename(pressed);
}

void ListChooser::choose(int)
{
    if (confirme_charger_file_LIS(view_.cursor()) == list_loaded) {
        closed_ = true;
        return;
    }
    read_names();
    closed_ = nb_file_LIS == 0;
    affich_screen();
    view_.affich_liste_filename();
}

void ListChooser::leave(int)
{
    closed_ = true;
}

} // namespace kq
