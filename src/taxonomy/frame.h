// model: the systematic frame: the taxonomic tree of groups, its group table and counts.
#pragma once

#include "core/families.h"

#include <array>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kq {

inline constexpr int max_groups = 600;
inline constexpr int group_name_size = 22; // bytes, closing NUL included
inline constexpr int max_subtrees = 500;
inline constexpr int max_frames = 100;

// A node; a leaf has no children, an inner node has two. Every walk visits child2 (the upper one) first.
struct node {
    node* parent = nullptr;
    int x = 0, y = 0; // drawing position in pixels (the file's numbers scaled to the cell)
    int no = 0;       // index of its name in groupe
    node* child2 = nullptr;
    node* child1 = nullptr;
    int sub = -1;   // -1, or: the head of a separately viewable subtree (its y as a root, scaled)
    int family = 0; // which paralog family's copy of the frame it belongs to
    int file_x = 0, file_y = 0, file_sub = -1; // the unscaled numbers

    bool leaf() const { return !child1; }
    bool expanded() const { return child1 && sub == -1; }
};

extern node* proot;                              // null while no frame is read
extern char groupe[max_groups][group_name_size]; // names of all groups; "Cupboard" is the last
extern int nb_groupe;                            // 0 while no frame is read
extern std::array<int, max_groups> color_groupe; // palette index; -1 = inner node or pseudo-group
extern std::array<node*, max_subtrees> p_arbre;  // subtree heads; 0 = the root
extern int nb_arbre;
extern int nb_feuille; // leaves of the tree
extern int maxgraph;   // right limit of the drawing area in pixels; written by adjust_frame
// Species assigned and selected, per family and group. Row nb_family counts the species whose identifier has
// a
// "-" but no family. The selection's functions (taxonomy/selection.h) and the group files keep them exact.
extern std::array<std::array<int, max_groups>, max_families + 1> nbtot_groupe;
extern std::array<std::array<int, max_groups>, max_families + 1> nbret_groupe;

inline std::string_view group_name(int group)
{
    return groupe[group];
}
inline int cupboard()
{
    return nb_groupe - 1;
} // the last group
int find_group(std::string_view name); // first index with that name, or -1

// The message when `count` groups are more than the table holds.
std::string too_many_groups(int count);
// Appends a group without colour; false when the table is full.
bool add_group(std::string_view name);

// A new node under `parent` (null for a root); too little memory is fatal.
node* cr_node(node* parent);
void free_frame(node* root); // null is allowed; freeing the frame in use leaves none
void frame_reset();          // no frame, no groups, no counts
std::string frame_error();   // empty, or the first broken invariant

} // namespace kq
