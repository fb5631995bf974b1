// model: building the frame.
#include "taxonomy/frame_build.h"

#include "screen/strings.h"
#include "screen/text.h"
#include "taxonomy/frame.h"

#include <vector>

namespace kq {

namespace {

// Where the nodes that are made here stand, in the reference cell of the frame files.
constexpr int leaf_x = 371, root_x = 3, row_height = 16, first_row = 8;

// -1 would mean that the node is no head.
int head_mark(int y)
{
    return y == -1 ? 0 : y;
}

void make_head(node& top, int row, int group)
{
    top.file_sub = head_mark(top.file_y);
    top.file_x = leaf_x;
    top.file_y = row_height * row + first_row;
    top.no = group;
}

node* join(node* upper, node* lower, int x, int group)
{
    node* joint = cr_node(nullptr);
    joint->file_x = x;
    joint->file_y = (upper->file_y + lower->file_y) / 2;
    joint->no = group;
    joint->child2 = upper;
    joint->child1 = lower;
    upper->parent = lower->parent = joint;
    return joint;
}

node* tree_of(std::span<const FraNode> nodes)
{
    std::vector<node*> made;
    made.reserve(nodes.size());
    for (const FraNode& read : nodes) {
        node* n = cr_node(nullptr);
        n->file_x = read.x;
        n->file_y = read.y;
        n->file_sub = read.sub;
        n->no = static_cast<int>(made.size());
        if (read.child1 >= 0) {
            n->child1 = made[static_cast<std::size_t>(read.child1)];
            n->child2 = made[static_cast<std::size_t>(read.child2)];
            n->child1->parent = n->child2->parent = n;
        }
        made.push_back(n);
    }
    return made.back();
}

// One copy of the frame for each family, joined under "Auto" nodes, with a leaf for "Cupboard" below them.
// The families' names and "Cupboard" get the groups after "Auto".
node* tree_of_families(node* frame)
{
    const int group_auto = nb_groupe - 1;
    const int first_family = nb_groupe;
    const int former_y = frame->file_y;
    make_head(*frame, 0, first_family);
    node* top = frame;
    for (int k = 1; k < nb_family; k++) {
        node* copy = copy_frame(*frame, nullptr, k);
        copy->file_y = former_y;
        make_head(*copy, k, first_family + k);
        top = join(top, copy, leaf_x - 3 * k, group_auto);
    }
    node* leaf = cr_node(nullptr);
    leaf->file_x = leaf_x;
    leaf->file_y = row_height * nb_family + first_row;
    leaf->no = first_family + nb_family;
    return join(top, leaf, root_x, group_auto);
}

std::string cherche_sous_arbre(node& top)
{
    if (top.leaf()) return "";
    if (top.file_sub != -1) {
        if (nb_arbre == max_subtrees)
            return text_format("There are too many subtrees. The limit is fixed at %d", max_subtrees);
        p_arbre[static_cast<std::size_t>(nb_arbre++)] = &top;
    }
    for (node* child : {top.child2, top.child1})
        if (std::string error = cherche_sous_arbre(*child); !error.empty()) return error;
    return "";
}

void affecte_default_color(const node& top)
{
    int& its_colour = color_groupe[static_cast<std::size_t>(top.no)];
    if (top.leaf()) {
        its_colour = color::light_grey;
        nb_feuille++;
        return;
    }
    its_colour = -1;
    affecte_default_color(*top.child2);
    affecte_default_color(*top.child1);
}

// Until the frame is adjusted to a cell, it is drawn as in the file.
void take_file_positions(node& top)
{
    top.x = top.file_x;
    top.y = top.file_y;
    top.sub = top.file_sub;
    if (top.leaf()) return;
    take_file_positions(*top.child2);
    take_file_positions(*top.child1);
}

} // namespace

node* copy_frame(const node& original, node* parent, int family)
{
    node* copy = cr_node(parent);
    *copy = original;
    copy->parent = parent;
    copy->family = family;
    if (!original.leaf()) {
        copy->child2 = copy_frame(*original.child2, copy, family);
        copy->child1 = copy_frame(*original.child1, copy, family);
    }
    return copy;
}

std::string build_frame(std::span<const FraNode> nodes)
{
    frame_reset();
    const bool families = nb_family > 0;
    const auto full = [] { return frame_reset(), too_many_groups(max_groups + 1); };
    for (const FraNode& read : nodes)
        if (!add_group(read.name)) return full();
    if (families && !add_group("Auto")) return full();

    proot = tree_of(nodes);
    if (families) {
        proot = tree_of_families(proot);
        for (int k = 0; k < nb_family; k++)
            if (!add_group(name_family[k])) return full();
    }
    if (!add_group("Cupboard")) return full();

    p_arbre[0] = proot;
    nb_arbre = 1;
    if (std::string error = cherche_sous_arbre(*proot); !error.empty()) return frame_reset(), error;
    proot->file_sub = head_mark(proot->file_y);
    nb_feuille = 0;
    affecte_default_color(*proot);
    take_file_positions(*proot);
    return "";
}

} // namespace kq
