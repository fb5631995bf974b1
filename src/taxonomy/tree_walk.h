// model: the user's place on the frame, and walks from there.
#pragma once

namespace kq {

struct node;

extern node* pcour;  // the current node; null before a tree screen is shown
extern int no_arbre; // index in p_arbre of the subtree shown

// Moves the current node one leaf or collapsed head up or down, wrapping at the ends of the view whose root
// is `root`; from an expanded node it moves to the upper or lower child.
void monter(node* root);
void descendre(node* root);

// Adds the species assigned to and selected below the node (itself included).
void compute_specie_sous_arbre(const node& top, int& total, int& selected);
// Appends to the working list every species below the node: node by node, the upper child first, in the
// species' order within a node. A group that several nodes stand for gives its species once.
void cherche_specie_groupe(const node& top);
// Makes the working list the species below the node.
void collect_species_below(const node& top);

// Index in p_arbre of the subtree that encloses the subtree head, and of the node itself; -1 = none.
int enclosing_subtree(const node& head);
int subtree_index(const node& head);

} // namespace kq
