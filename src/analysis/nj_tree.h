// screen: the neighbour-joining tree of an analysis, and its file.
#pragma once

#include "analysis/joining.h"
#include "analysis/put_text.h"
#include "core/store.h"

#include <array>

namespace kq {

constexpr int species_of_least_tree = 3;

// A node of the tree: a leaf, which has a name, or an inner node, which has two children.
struct nodenj {
    double length = 0;          // of the branch above the node
    const char* name = nullptr; // the identifier of a leaf, in `ident`
    nodenj *left = nullptr, *right = nullptr;
};
// A node with all fields zero; "Insufficient memory" ends the program.
nodenj* cr_nodenj();
void free_subtree(nodenj* node);

// Roots of the subtrees still to be joined, slot by slot, the first nbs of them in use; set while the tree is
// built and written.
extern std::array<nodenj*, max_species> feuille;
extern int nbs;

// Carries one join out on feuille and nbs. With three subtrees left it makes no node, but gives two of them
// their lengths.
void join_neighbor(const Join& join);

// Writes a subtree: a leaf as its name, blanks as "_", with ":" and its length; an inner node as
// "(right,left):length". False when `put` said so.
bool sauve_int(const nodenj* node, const PutText& put);

// Builds the tree of the distances in dist, which are destroyed, in a box "COMPUTING THE NJ TREE", and writes
// it to nomfic, whose extension becomes .arb. True when it is there, and with fewer than three species, which
// have no tree. False when ESCAPE stopped it or it could not be written, which has been shown.
bool calcul_arbre();

} // namespace kq
