// screen: drawing the tree: a left-to-right dendrogram with the counts of species beside its leaves.
//
// Coordinates come from frame files and may be nonsense: everything is clipped to the tree's area, screen
// lines 3 to the last but one. A view with more rows than that scrolls.
#pragma once

namespace kq {

struct node;

// How the screen is drawn again after a key or a screen in front of it: not at all, over what is there, on a
// cleared tree area, on a cleared screen.
enum class TreeRedraw : int { nothing = 0, over = 1, tree = 2, screen = 3 };

// Draws the screen of ensemble `ens` with the subtree `root`.
void affich_ecran_arbre(TreeRedraw mode, const node& root, int ens);
// Draws a subtree of the view.
void trace_tree(const node& top);
// Highlights the current node and shows it on line 2, or restores its normal looks.
void active_node(bool on);
// Redraws the numbers of selected species below a node.
void affich_nb_ret_gro(const node& top);
// Rewrites the number of selected species on line 1.
void affich_nb_retenu();

// Scrolls so that the current node is in the tree's area; whether the view has moved (and must be drawn
// again).
bool bring_into_view(const node& root);
void forget_scrolling();

} // namespace kq
