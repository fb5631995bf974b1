// screen: the neighbour-joining tree of an analysis, and its file.
#include "analysis/nj_tree.h"

#include "analysis/analysed.h"
#include "analysis/comment_header.h"
#include "analysis/distance_matrix.h"
#include "analysis/output_file.h"
#include "analysis/output_names.h"
#include "analysis/progress.h"
#include "screen/dialogs.h"
#include "screen/files.h"
#include "screen/process_end.h"
#include "screen/strings.h"
#include "screen/text.h"

#include <algorithm>
#include <new>
#include <string>
#include <utility>
#include <vector>

namespace kq {

constinit std::array<nodenj*, max_species> feuille{};
constinit int nbs = 0;

namespace {

constexpr int box_line = 8, box_left = 27, box_right = 53;

nodenj*& root(int slot)
{
    return feuille[static_cast<std::size_t>(slot)];
}

// One leaf for each analysed species.
void make_leaves()
{
    for (nbs = 0; nbs < nb_spec_auto; nbs++) {
        root(nbs) = cr_nodenj();
        root(nbs)->name = identifier(cor_auto[static_cast<std::size_t>(nbs)]).data();
    }
}

// The three subtrees that no node holds together.
void build_tree(const Joins& tree)
{
    make_leaves();
    for (const Join& join : tree.joins)
        join_neighbor(join);
    const Join& last = tree.joins.back();
    root(3 - last.nei1 - last.nei2)->length = tree.last_length;
}

std::string leaf_text(const nodenj& leaf)
{
    std::string text = text_format("%s:%f", leaf.name, leaf.length);
    std::replace(text.begin(), text.end(), ' ', '_');
    return text;
}

bool put_tree(const PutText& put)
{
    if (!write_comment(put, 'm') || !put("#Tree calculated by the Neighbor Joining method\n")) return false;
    for (int slot = 0; slot < 3; slot++)
        if (!put(slot == 0 ? "(" : ",") || !sauve_int(root(slot), put)) return false;
    return put(");");
}

// The tree in feuille, which goes however its writing ends.
class TreeInUse {
public:
    explicit TreeInUse(const Joins& tree) { build_tree(tree); }
    ~TreeInUse()
    {
        for (int slot = 0; slot < 3; slot++)
            free_subtree(root(slot));
        feuille.fill(nullptr);
        nbs = 0;
    }
    TreeInUse(const TreeInUse&) = delete;
    TreeInUse& operator=(const TreeInUse&) = delete;
};

} // namespace

nodenj* cr_nodenj()
{
    auto* const node = new (std::nothrow) nodenj;
    if (!node) erreur_fatale("Insufficient memory");
    return node;
}

// Takes no memory, which may be what has run out: left children are turned up until there is none.
void free_subtree(nodenj* node)
{
    while (node) {
        nodenj* const left = node->left;
        if (left) {
            node->left = left->right;
            left->right = node;
            node = left;
        } else {
            delete std::exchange(node, node->right);
        }
    }
}

void join_neighbor(const Join& join)
{
    nodenj *const first = root(join.nei1), *const second = root(join.nei2);
    first->length = join.length1;
    second->length = join.length2;
    if (nbs == 3) return;
    nodenj* const node = cr_nodenj();
    node->left = first;
    node->right = second;
    root(join.nei1) = node;
    std::move(&root(join.nei2) + 1, feuille.data() + nbs, &root(join.nei2));
    nbs--;
}

bool sauve_int(const nodenj* node, const PutText& put)
{
    struct Begun {
        const nodenj* node;
        bool at_left; // the right subtree is written
    };
    // The inner nodes above the one at hand: a tree may be as deep as it has leaves.
    std::vector<Begun> begun;
    for (const nodenj* next = node;; next = begun.back().node->left) {
        for (; !next->name; next = next->right) {
            if (!put("(")) return false;
            begun.push_back({next, false});
        }
        if (!put(leaf_text(*next))) return false;
        for (; !begun.empty() && begun.back().at_left; begun.pop_back())
            if (!put(text_format("):%f", begun.back().node->length))) return false;
        if (begun.empty()) return true;
        if (!put(",")) return false;
        begun.back().at_left = true;
    }
}

bool calcul_arbre()
{
    if (nb_spec_auto < species_of_least_tree) return true;
    const ScreenCopy covered;
    affich_progress("COMPUTING THE NJ TREE", box_line, box_left, box_right, color::yellow);
    const auto tree = join_neighbors(dist, nb_spec_auto, [](std::int64_t) { return go_on(); });
    covered.put_back();
    if (!tree) return false;

    const TreeInUse in_use(*tree);
    nomfic = with_extension(nomfic, ".arb");
    OutputFile file;
    put_tree(file.put()); // where it stops early, commit() says why
    return file.commit();
}

} // namespace kq
