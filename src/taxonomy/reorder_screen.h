// screen: reordering the selected species by numbers typed beside them.
#pragma once

#include "screen/bindings.h"
#include "taxonomy/column_list.h"
#include "taxonomy/tree_draw.h"

#include <vector>

namespace kq {

// Runs the screen; how the tree screen is to be drawn again.
TreeRedraw gere_reorder_specie_retenue();

// One run of the screen: a cursor on a list of two columns, of which a view is shown. The actions of the keys
// get the key.
class ReorderScreen {
public:
    ReorderScreen();
    TreeRedraw run();

    void up(int key);
    void down(int key);
    void left(int key);
    void right(int key);
    void page_up(int key);
    void page_down(int key);
    void digit(int key);
    void erase_digit(int key);
    void information(int key);
    void help(int key);
    void apply(int key);
    void apply_and_return(int key);
    void leave(int key);

private:
    int order_specie();
    void begin();
    void affich_screen() const;
    void affich_list() const;
    void affich_entry(int entry) const;

    std::vector<int> new_order_; // the number typed beside each entry
    ColumnList list_;            // of the selection by rank
    bool closed_ = false;
};

using ReorderAction = void (ReorderScreen::*)(int key);
extern const KeyTable<ReorderAction> reorder_keys; // app/reorder_keys.cpp

} // namespace kq
