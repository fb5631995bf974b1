// screen: the list of the species of a group, or of a search: selecting, masking, deleting, looking, renaming
// and moving to other groups, species by species.
#pragma once

#include "screen/bindings.h"
#include "taxonomy/column_list.h"

#include <functional>
#include <string_view>

namespace kq {

// Shows the working list (taxonomy/selection.h) until the user leaves; an empty list is not shown. `group` is
// the group whose species they are; list_without_group (taxonomy/group_moves.h), or another negative number,
// for what a search has found.
void choice_specie(int group);

// How much is drawn again after a key; each includes the ones before it.
enum class SpeciesRedraw { cursor, ranks, list, screen };

// One run of the screen: a cursor on a list of columns, of which a view is shown.
class SpeciesScreen {
public:
    explicit SpeciesScreen(int group);
    void run();

    // ---- moving
    SpeciesRedraw up();
    SpeciesRedraw down();
    SpeciesRedraw page_up();
    SpeciesRedraw page_down();
    SpeciesRedraw left();
    SpeciesRedraw right();
    SpeciesRedraw next_of_another_ensemble();

    // ---- selecting
    SpeciesRedraw toggle_selection(); // and one entry down
    SpeciesRedraw toggle_hundred();   // from the cursor on, and leaves
    SpeciesRedraw select_all();       // leaves
    SpeciesRedraw select_free();      // leaves

    // ---- the current species
    SpeciesRedraw toggle_mask();
    SpeciesRedraw information();
    SpeciesRedraw rename(); // and choose its group
    SpeciesRedraw choose_group_by_hand();
    SpeciesRedraw assign_group();         // from its classification
    SpeciesRedraw assign_groups_of_all(); // of the list, and leaves
    // Selects it when `search`, which selects species like it, has selected any.
    SpeciesRedraw select_neighbours(void (*search)(int species));
    // Deletes it with `destroy` (0 = done), which draws what its boxes cover again with its second argument.
    SpeciesRedraw destroy_current(int (*destroy)(int species, const std::function<void()>& draw_again));

    SpeciesRedraw help();
    SpeciesRedraw leave();

private:
    int current_species() const;
    int list_of_moves() const;
    SpeciesRedraw to_top();
    SpeciesRedraw move(int entries);
    void draw(SpeciesRedraw redraw);
    void affich_choice_specie() const;
    void affich_liste_specie() const;
    void affich_liste_position() const;
    void color_case_specie(int entry, bool on) const;
    void write_entry(int entry, std::string_view text) const;

    int group_;
    ColumnList list_; // of the working list
    bool left_ = false;
};

using SpeciesAction = SpeciesRedraw (*)(SpeciesScreen&);
extern const KeyTable<SpeciesAction> species_keys; // app/species_keys.cpp

} // namespace kq
