// screen: the list of groups: choosing one of them, or giving them their colours.
#include "taxonomy/group_list.h"

#include "raster/grx.h"
#include "screen/dialogs.h"
#include "screen/strings.h"
#include "screen/text.h"
#include "taxonomy/frame.h"
#include "taxonomy/frame_files.h"
#include "taxonomy/group_colours.h"
#include "taxonomy/group_file_screen.h"

#include <algorithm>
#include <new>
#include <string>
#include <string_view>
#include <vector>

namespace kq {

namespace {

constexpr int first_list_line = 2, first_list_column = 3;
constexpr int lines_around_list = 4; // frame, an empty line, legend, frame
constexpr int most_columns = 3, longest_name = 25;
constexpr int readable_name = 12; // a column with less room is left out
constexpr int entries_of_a_page = 10;
constexpr int warning_line = 10, memory_warning_line = 4;

bool comparer_groupe(int a, int b)
{
    return group_name(a) < group_name(b);
}

// The groups that `wanted` lets through, by name; nothing when there is no memory.
template <class Wanted>
std::optional<std::vector<int>> sorted_groups(Wanted wanted)
try {
    std::vector<int> cor_grp;
    for (int g = 0; g < nb_groupe; g++)
        if (wanted(g)) cor_grp.push_back(g);
    std::ranges::stable_sort(cor_grp, comparer_groupe);
    return cor_grp;
} catch (const std::bad_alloc&) {
    affich_avert("Insufficient available memory (cor_grp)", memory_warning_line);
    return std::nullopt;
}

} // namespace

int choice_groupe(std::span<const int> cor_grp, GroupListMode mode)
{
    return cor_grp.empty() ? escaped : GroupListScreen(cor_grp, mode).run();
}

int choose_group()
{
    const auto cor_grp = sorted_groups([](int g) { return group_name(g) != "?"; });
    if (!cor_grp) return escaped;
    const int chosen = choice_groupe(*cor_grp, GroupListMode::choose);
    return chosen < 0 ? escaped : (*cor_grp)[static_cast<std::size_t>(chosen)];
}

int change_color_all_groupe()
{
    const auto cor_grp = sorted_groups([](int g) { return color_groupe[static_cast<std::size_t>(g)] != -1; });
    return cor_grp ? choice_groupe(*cor_grp, GroupListMode::colour) : escaped;
}

// Deliberate: the columns are as far apart as the list has rows.
GroupListScreen::GroupListScreen(std::span<const int> cor_grp, GroupListMode mode)
    : cor_grp_(cor_grp)
    , mode_(mode)
    , nb_obj_affich_(static_cast<int>(cor_grp.size()))
    , list_{.rows = std::max(1, _nb_line - lines_around_list), .columns = 1}
{
    while (list_.columns < most_columns &&
           first_list_column + list_.columns * list_.rows + readable_name <= _nb_col)
        list_.columns++;
}

int GroupListScreen::run()
{
    const auto& keys = mode_ == GroupListMode::choose ? group_choice_keys : group_colour_keys;
    affich_screen();
    while (!result_) {
        affich_liste_groupe();
        const int pressed = GrKeyRead();
        if (const auto* binding = keys.find(pressed))
            (this->*binding->run)(pressed);
        else if (mode_ == GroupListMode::colour)
            recolour(pressed);
    }
    return *result_;
}

int GroupListScreen::current_group() const
{
    return cor_grp_[static_cast<std::size_t>(first_groupe_ + list_.current)];
}

// ---- drawing ----------------------------------------------------------------------------------------------

void GroupListScreen::affich_screen() const
{
    _setbgcolor(color::black);
    window_hp(1, 1, _nb_line, _nb_col, color::light_grey);
    if (mode_ == GroupListMode::choose)
        outtext_inside(_nb_line - 1, 3, color::light_cyan,
                       "ENTER:Selection    F2:List    A-Z:Sub-list    ESCAPE:Cancel");
    else
        affich_bandeau_color_groupe(_nb_line - 1, ColourLegend::list);
}

void GroupListScreen::affich_liste_groupe() const
{
    _settextwindow(first_list_line, first_list_column, _nb_line - 3, _nb_col - 1);
    for (int entry = list_.dec_obj; entry < list_.end_of_view(); entry++)
        color_case_groupe(entry, entry == list_.current);
}

void GroupListScreen::color_case_groupe(int entry, bool on) const
{
    const int offset = entry - list_.dec_obj;
    const int line = offset % list_.rows + 1, column = offset / list_.rows * list_.rows + 1;
    const int to_window_end = y2_win - y1_win + 2 - column;
    const int room =
        std::min(offset / list_.rows + 1 < list_.columns ? list_.rows : to_window_end, to_window_end);
    _settextposition(line, column);
    std::string_view name;
    if (entry < nb_obj_affich_) {
        const int group = cor_grp_[static_cast<std::size_t>(first_groupe_ + entry)];
        // A blank stays between neighbouring columns.
        name = group_name(group).substr(0, static_cast<std::size_t>(std::clamp(room - 1, 1, longest_name)));
        select_color_groupe(group);
        select_bk_color_groupe(group, on);
        _outtext(name);
        _setbgcolor(color::black);
    }
    // What a longer name left behind.
    const int written = static_cast<int>(name.size());
    _settextposition(line, column + written);
    _outtext(std::string(static_cast<std::size_t>(std::max(0, std::min(room, longest_name) - written)), ' '));
}

// ---- moving -----------------------------------------------------------------------------------------------

void GroupListScreen::move(int entries)
{
    list_.move(entries, nb_obj_affich_);
}

void GroupListScreen::up(int)
{
    move(-1);
}

void GroupListScreen::down(int)
{
    move(1);
}

void GroupListScreen::left(int)
{
    if (list_.current >= list_.rows) move(-list_.rows);
}

void GroupListScreen::right(int)
{
    if (list_.current + list_.rows < nb_obj_affich_) move(list_.rows);
}

void GroupListScreen::page_up(int)
{
    move(-entries_of_a_page);
}

void GroupListScreen::page_down(int)
{
    move(entries_of_a_page);
}

void GroupListScreen::home(int)
{
    list_.current = list_.dec_obj = 0;
}

void GroupListScreen::end(int)
{
    list_.current = nb_obj_affich_ - 1;
    list_.dec_obj = std::max(0, nb_obj_affich_ - list_.rows * list_.columns);
}

void GroupListScreen::leave(int)
{
    result_ = escaped;
}

// ---- choosing ---------------------------------------------------------------------------------------------

void GroupListScreen::show_sub_list(int first_groupe, int nb_obj_affich)
{
    first_groupe_ = first_groupe;
    nb_obj_affich_ = nb_obj_affich;
    list_.current = list_.dec_obj = 0;
}

void GroupListScreen::choose(int)
{
    result_ = first_groupe_ + list_.current;
}

void GroupListScreen::full_list(int)
{
    show_sub_list(0, static_cast<int>(cor_grp_.size()));
}

// Deliberate: names that begin with a lower-case letter are never found.
void GroupListScreen::sub_list(int key)
{
    const char letter = static_cast<char>(key >= 'a' && key <= 'z' ? key - 'a' + 'A' : key);
    const auto begins = [letter](int group) { return group_name(group).starts_with(letter); };
    const auto first = std::ranges::find_if(cor_grp_, begins);
    if (first == cor_grp_.end()) {
        affich_avert("There are no groups beginning with this letter", warning_line);
        return affich_screen();
    }
    const auto behind = std::find_if_not(first, cor_grp_.end(), begins);
    show_sub_list(static_cast<int>(first - cor_grp_.begin()), static_cast<int>(behind - first));
}

// ---- colours ----------------------------------------------------------------------------------------------

void GroupListScreen::other_colours(int)
{
    choice_file_COL();
    affich_screen();
}

void GroupListScreen::save_colours(int)
{
    if (write_file_COL())
        result_ = ok;
    else
        affich_screen();
}

void GroupListScreen::recolour(int key)
{
    affect_color_groupe(key, current_group());
}

} // namespace kq
