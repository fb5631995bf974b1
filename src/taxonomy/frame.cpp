// model: the systematic frame.
#include "taxonomy/frame.h"

#include "screen/process_end.h"
#include "screen/strings.h"

#include <new>

namespace kq {

constinit node* proot = nullptr;
constinit char groupe[max_groups][group_name_size] = {};
constinit int nb_groupe = 0;
constinit std::array<int, max_groups> color_groupe{};
constinit std::array<node*, max_subtrees> p_arbre{};
constinit int nb_arbre = 0;
constinit int nb_feuille = 0;
constinit int maxgraph = 0;
constinit std::array<std::array<int, max_groups>, max_families + 1> nbtot_groupe{};
constinit std::array<std::array<int, max_groups>, max_families + 1> nbret_groupe{};

int find_group(std::string_view name)
{
    for (int g = 0; g < nb_groupe; g++)
        if (group_name(g) == name) return g;
    return -1;
}

std::string too_many_groups(int count)
{
    return text_format("There are too many groups: maximum %d; here there are %d", max_groups, count);
}

bool add_group(std::string_view name)
{
    if (nb_groupe >= max_groups) return false;
    copy_field(groupe[nb_groupe], name);
    color_groupe[static_cast<std::size_t>(nb_groupe)] = -1;
    nb_groupe++;
    return true;
}

node* cr_node(node* parent)
{
    node* created = new (std::nothrow) node;
    if (!created) erreur_fatale("Insufficient memory to read systematic frame");
    created->parent = parent;
    return created;
}

void free_frame(node* root)
{
    if (!root) return;
    if (root == proot) {
        proot = nullptr;
        p_arbre.fill(nullptr);
        nb_arbre = 0;
    }
    if (root->child1 && root->child2) {
        free_frame(root->child2);
        free_frame(root->child1);
    }
    delete root;
}

void frame_reset()
{
    free_frame(proot);
    nb_groupe = nb_feuille = 0;
    color_groupe.fill(-1);
    for (auto& row : nbtot_groupe)
        row.fill(0);
    for (auto& row : nbret_groupe)
        row.fill(0);
}

namespace {

std::string subtree_error(const node& top, int& leaves)
{
    if (top.no < 0 || top.no >= nb_groupe) return text_format("a node names group %d", top.no);
    if (top.family < 0 || top.family > max_families) return text_format("a node is of family %d", top.family);
    if (!top.child1 != !top.child2) return "a node has one child";
    if (top.leaf()) {
        leaves++;
        return "";
    }
    for (const node* child : {top.child2, top.child1}) {
        if (child->parent != &top) return text_format("a child of \"%s\" has another parent", groupe[top.no]);
        if (std::string error = subtree_error(*child, leaves); !error.empty()) return error;
    }
    return "";
}

} // namespace

std::string frame_error()
{
    if (!proot) return "";
    if (nb_groupe < 1 || nb_groupe > max_groups) return "the number of groups is out of bounds";
    if (group_name(cupboard()) != "Cupboard") return "the last group is not \"Cupboard\"";
    if (nb_arbre < 1 || nb_arbre > max_subtrees || p_arbre[0] != proot)
        return "the subtree list does not begin with the root";
    int leaves = 0;
    std::string error = subtree_error(*proot, leaves);
    if (error.empty() && leaves != nb_feuille) error = "the leaves have not been counted";
    return error;
}

} // namespace kq
