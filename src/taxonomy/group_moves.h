// model: moving species to another group: which ones go along, and the list that is on the screen.
#pragma once

#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace kq {

// Where a move is asked for, in the place of the group whose species a screen lists.
inline constexpr int list_without_group = -1; // a screen lists species, which are no group's (a search, say)
inline constexpr int no_list = -2; // no screen lists species (the editor): the working list is stale

// The groups that a screen shows: the group itself, and when the current node of the tree is the branch of
// that name, all groups below it.
class ShownGroup {
public:
    explicit ShownGroup(int group);
    bool holds(int species) const; // false for all when no group is shown
private:
    int group_;
    std::vector<bool> below_; // per family and group; empty: the group alone, in any family
};
// Makes the working list the species of the shown group.
void list_species_of_group(int group);

// Group indexes by name; of groups with one name the first.
class GroupNames {
public:
    GroupNames();
    // The group that the words (most specific first) name first, or -1.
    int find_first(std::span<const std::string> words) const;

private:
    std::unordered_map<std::string_view, int> groups_;
};

// Moves made from one screen. A species takes along others by its key (nom_key):
//
// From a screen that lists species, those of the working list whose identifier, without its family, begins
// with the key; with families (identifiers without "-" then stay where they are) also all species of the
// alignment whose text after the first "-" begins with it: paralog copies move together. Without a list,
// those whose own key is the same.
//
// A species leaves "Cupboard" for the family that its identifier names, and without one stays there.
class GroupMoves {
public:
    explicit GroupMoves(int group_shown);
    ~GroupMoves();
    bool shown(int species) const { return shown_.holds(species); }
    void move(int species, int group);
    void undo(); // as before the first move; before update_list only
    // Takes out of the working list what has been moved out of the shown group.
    void update_list();

private:
    class Index; // species by the text that keys are compared with
    struct Before {
        int species, family, group;
    };
    void reassign(int species, int group);

    int group_shown_;
    ShownGroup shown_;
    std::unique_ptr<Index> listed_, copies_, same_key_; // null where it does not matter
    std::vector<Before> done_;
    std::vector<bool> left_; // per species: moved out of the shown group
};

} // namespace kq
