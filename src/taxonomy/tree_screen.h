// screen: the tree screen, on which species are selected by group for an ensemble.
#pragma once

#include "screen/bindings.h"
#include "taxonomy/tree_draw.h"

#include <optional>

namespace kq {

struct node;

// What gere_arbre returns besides the index of the subtree to show next.
inline constexpr int selection_finished = -1;  // the working list holds the selection by rank
inline constexpr int load_another = -2;        // the user wants another alignment
inline constexpr int automatic_selection = -4; // the bacterial split is to make the ensembles

// Runs the screen for an ensemble on subtree p_arbre[no_arbre].
int gere_arbre(int ens);

// One run of the screen. The actions of its keys work on the current node (pcour).
class TreeScreen {
public:
    explicit TreeScreen(int ens);
    int run();

    TreeRedraw help();
    TreeRedraw select_all();
    TreeRedraw select_free();
    TreeRedraw select_new();
    TreeRedraw select_complete();
    TreeRedraw select_incomplete();
    TreeRedraw finish();
    TreeRedraw name_ensemble();
    TreeRedraw deselect();
    TreeRedraw reorder();
    TreeRedraw save_list();
    TreeRedraw load_list();
    TreeRedraw search_beginning_of_name();
    TreeRedraw search_part_of_name();
    TreeRedraw list_species();
    TreeRedraw list_cupboard();
    TreeRedraw write_outputs();
    // A command that works on all ensembles, the one being built with the species selected so far.
    template <void (*command)()>
    TreeRedraw on_stored_selection()
    {
        return run_on_stored_selection(command);
    }
    TreeRedraw write_groups();
    TreeRedraw window_options();
    TreeRedraw colour_all_groups();
    TreeRedraw colour_leaves();
    TreeRedraw choose_colours();
    TreeRedraw to_root();
    TreeRedraw up();
    TreeRedraw down();
    TreeRedraw four_up();
    TreeRedraw four_down();
    TreeRedraw to_parent();
    TreeRedraw into_subtree();
    TreeRedraw split_bacteria();
    TreeRedraw other_alignment();
    TreeRedraw quit();

private:
    // The head of the subtree on display stands at the left and is expanded; it takes its place in the view
    // of the enclosing subtree again when this goes.
    class ViewRoot {
    public:
        explicit ViewRoot(node& head);
        ~ViewRoot();
        ViewRoot(const ViewRoot&) = delete;
        ViewRoot& operator=(const ViewRoot&) = delete;

    private:
        node& head_;
        int saved_y_;
    };

    TreeRedraw leave(int result);
    TreeRedraw select_below(int mode);
    TreeRedraw select_by_completeness(int direction);
    TreeRedraw move(void (*step)(node*), int steps);
    TreeRedraw list_working_species(int group) const;
    TreeRedraw warn_too_many() const;
    TreeRedraw warn(const char* message) const;
    TreeRedraw run_on_stored_selection(void (*command)());
    void draw(TreeRedraw redraw);

    int ens_;
    node* root_;
    std::optional<ViewRoot> view_root_;
    std::optional<int> result_;
};

using TreeAction = TreeRedraw (TreeScreen::*)();
extern const KeyTable<TreeAction> tree_keys; // app/tree_keys.cpp

} // namespace kq
