// model: the user's place on the frame, and walks from there.
#include "taxonomy/tree_walk.h"

#include "taxonomy/frame.h"
#include "taxonomy/selection.h"

#include <algorithm>
#include <vector>

namespace kq {

constinit node* pcour = nullptr;
constinit int no_arbre = 0;

namespace {

using Child = node* node::*;

node* follow(node* from, Child child)
{
    while (from->expanded())
        from = from->*child;
    return from;
}

// One step towards the children called `near`: into the current node when it is expanded, else to the
// nearest entry of the neighbouring branch, or round to the entry farthest on the other side.
void step(node* root, Child near, Child far)
{
    if (pcour->expanded()) {
        pcour = pcour->*near;
        return;
    }
    for (node* from = pcour; from != root; from = from->parent) {
        if (from->parent->*far != from) continue;
        pcour = follow(from->parent->*near, far);
        return;
    }
    pcour = follow(root, far);
}

// The counters below a node in the order of the walk, each once.
struct Counters {
    std::vector<std::pair<int, int>> list; // family and group
    std::vector<int> place;                // of each family and group in the list; -1 = not there

    Counters()
        : place(nbtot_groupe.size() * max_groups, -1)
    {
    }
    int& place_of(int family, int group)
    {
        return place[static_cast<std::size_t>(family) * max_groups + static_cast<std::size_t>(group)];
    }
    void collect(const node& top)
    {
        const auto& total = nbtot_groupe[static_cast<std::size_t>(top.family)];
        if (total[static_cast<std::size_t>(top.no)] != 0 && place_of(top.family, top.no) == -1) {
            place_of(top.family, top.no) = static_cast<int>(list.size());
            list.emplace_back(top.family, top.no);
        }
        if (top.leaf()) return;
        collect(*top.child2);
        collect(*top.child1);
    }
    // The species' place in the list, -1 when it is not below the node.
    int find(int species)
    {
        const int group = no_groupe[static_cast<std::size_t>(species)];
        const int family = nb_family > 0 ? no_family[static_cast<std::size_t>(species)] : 0;
        if (group < 0 || group >= max_groups || family < 0 || family > max_families) return -1;
        return place_of(family, group);
    }
};

} // namespace

void monter(node* root)
{
    step(root, &node::child2, &node::child1);
}

void descendre(node* root)
{
    step(root, &node::child1, &node::child2);
}

void compute_specie_sous_arbre(const node& top, int& total, int& selected)
{
    const auto family = static_cast<std::size_t>(top.family), group = static_cast<std::size_t>(top.no);
    total += nbtot_groupe[family][group];
    selected += nbret_groupe[family][group];
    if (top.leaf()) return;
    compute_specie_sous_arbre(*top.child2, total, selected);
    compute_specie_sous_arbre(*top.child1, total, selected);
}

void cherche_specie_groupe(const node& top)
{
    Counters counters;
    counters.collect(top);

    // Counting sort: sizes, then the end of each counter's run, then the species in their order.
    std::vector<int> next(counters.list.size() + 1, 0);
    for (int s = 0; s < nb_spec; s++)
        if (const int p = counters.find(s); p >= 0) next[static_cast<std::size_t>(p) + 1]++;
    for (std::size_t p = 1; p < next.size(); p++)
        next[p] += next[p - 1];
    const int room = max_species - nb_spec_gro;
    for (int s = 0; s < nb_spec; s++) {
        const int p = counters.find(s);
        if (p < 0) continue;
        const int offset = next[static_cast<std::size_t>(p)]++;
        if (offset < room) cor[static_cast<std::size_t>(nb_spec_gro + offset)] = s;
    }
    nb_spec_gro += std::min(next.back(), room);
}

void collect_species_below(const node& top)
{
    nb_spec_gro = 0;
    cherche_specie_groupe(top);
}

int subtree_index(const node& head)
{
    for (int i = 0; i < nb_arbre; i++)
        if (p_arbre[static_cast<std::size_t>(i)] == &head) return i;
    return -1;
}

int enclosing_subtree(const node& head)
{
    for (const node* up = head.parent; up; up = up->parent)
        if (const int index = subtree_index(*up); index >= 0) return index;
    return -1;
}

} // namespace kq
