// screen: colouring the groups of the tree on display.
#pragma once

#include "screen/bindings.h"
#include "taxonomy/frame.h"

#include <optional>

namespace kq {

// Lets the user colour the leaves of the view `root` of ensemble `ens`, from the current node on: 0 when the
// colour file has been written; -1 on ESCAPE (the colours are those of the file again), and at once when the
// current node is expanded. The tree screen is drawn again by the caller.
int change_color_groupe(node& root, int ens);

// One run. The actions of the keys get the key.
class TreeColourScreen {
public:
    TreeColourScreen(node& root, int ens);
    int run();

    void up(int key);
    void down(int key);
    void recolour(int key);
    void save(int key);
    void cancel(int key);

private:
    void affich_screen() const;
    void move(void (*step)(node*));

    node& root_;
    int ens_;
    decltype(color_groupe) before_; // the colours at the start
    std::optional<int> result_;
};

using TreeColourAction = void (TreeColourScreen::*)(int key);
extern const KeyTable<TreeColourAction> tree_colour_keys; // app/tree_keys.cpp

} // namespace kq
