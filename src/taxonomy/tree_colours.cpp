// screen: colouring the groups of the tree on display.
#include "taxonomy/tree_colours.h"

#include "raster/grx.h"
#include "screen/dialogs.h"
#include "screen/text.h"
#include "taxonomy/frame_files.h"
#include "taxonomy/group_colours.h"
#include "taxonomy/tree_draw.h"
#include "taxonomy/tree_walk.h"

namespace kq {

int change_color_groupe(node& root, int ens)
{
    return pcour->expanded() ? escaped : TreeColourScreen(root, ens).run();
}

TreeColourScreen::TreeColourScreen(node& root, int ens)
    : root_(root)
    , ens_(ens)
    , before_(color_groupe)
{
}

int TreeColourScreen::run()
{
    affich_screen();
    while (!result_) {
        const int pressed = GrKeyRead();
        if (const auto* binding = tree_colour_keys.find(pressed))
            (this->*binding->run)(pressed);
        else
            recolour(pressed);
    }
    return *result_;
}

// The tree with the legend of the colours in the place of its own.
void TreeColourScreen::affich_screen() const
{
    affich_ecran_arbre(TreeRedraw::tree, root_, ens_);
    active_node(true);
    _settextwindow(_nb_line, 1, _nb_line, _nb_col);
    _clearscreen(1);
    affich_bandeau_color_groupe(1, ColourLegend::tree);
}

void TreeColourScreen::move(void (*step)(node*))
{
    active_node(false);
    step(&root_);
    if (bring_into_view(root_))
        affich_screen();
    else
        active_node(true);
}

void TreeColourScreen::up(int)
{
    move(monter);
}

void TreeColourScreen::down(int)
{
    move(descendre);
}

void TreeColourScreen::recolour(int key)
{
    if (!pcour->leaf()) return; // the head of a subtree has no colour of its own
    affect_color_groupe(key, pcour->no);
    trace_tree(root_); // each family has a leaf of the group
    active_node(true);
}

void TreeColourScreen::save(int)
{
    if (write_file_COL())
        result_ = ok;
    else
        affich_screen();
}

void TreeColourScreen::cancel(int)
{
    color_groupe = before_; // should the file have become unreadable
    reread_file_COL();
    result_ = escaped;
}

} // namespace kq
