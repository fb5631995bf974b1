// screen: the list of groups: choosing one of them, or giving them their colours.
#pragma once

#include "screen/bindings.h"
#include "taxonomy/column_list.h"

#include <optional>
#include <span>

namespace kq {

enum class GroupListMode {
    choose, // letters lead to sub-lists
    colour, // keys recolour the current group
};

// Runs the screen on these groups (sorted by name). choose: the index into `cor_grp` of the chosen group, or
// -1 on ESCAPE. colour: 0 when the colour file has been written, or -1 on ESCAPE (what has been recoloured
// stays so until the program ends).
int choice_groupe(std::span<const int> cor_grp, GroupListMode mode);

// A group chosen from all groups but those named "?"; its number, or -1.
int choose_group();
// Edits the colours of all groups that have one: 0 when written, else -1.
int change_color_all_groupe();

// One run of the screen: a cursor on a list of up to three columns. The actions of the keys get the key.
class GroupListScreen {
public:
    GroupListScreen(std::span<const int> cor_grp, GroupListMode mode);
    int run();

    void up(int key);
    void down(int key);
    void left(int key);
    void right(int key);
    void page_up(int key);
    void page_down(int key);
    void home(int key);
    void end(int key);
    void leave(int key);
    void choose(int key);
    void full_list(int key);
    void sub_list(int key);
    void other_colours(int key);
    void save_colours(int key);
    void recolour(int key);

private:
    void show_sub_list(int first_groupe, int nb_obj_affich);
    void move(int entries);
    void affich_screen() const;
    void affich_liste_groupe() const;
    void color_case_groupe(int entry, bool on) const;
    int current_group() const;

    std::span<const int> cor_grp_;
    GroupListMode mode_;
    int first_groupe_ = 0, nb_obj_affich_; // the sub-list within cor_grp_
    ColumnList list_;                      // of the sub-list
    std::optional<int> result_;
};

using GroupListAction = void (GroupListScreen::*)(int key);
extern const KeyTable<GroupListAction> group_choice_keys, group_colour_keys; // app/group_list_keys.cpp

} // namespace kq
