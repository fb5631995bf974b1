// screen: the keys of the species screen.
#include "editor/similarity.h"
#include "editor/species_removal.h"
#include "raster/keys.h"
#include "taxonomy/species_screen.h"

namespace kq {

namespace {

template <auto action>
constexpr SpeciesAction run = [](SpeciesScreen& screen) { return (screen.*action)(); };

// What lies above the screen's folder is handed to it here.
SpeciesRedraw destroy_species(SpeciesScreen& screen)
{
    return screen.destroy_current([](int species, const std::function<void()>& draw_again) {
        return destroy_sequence_int(species, Removal::asked, draw_again);
    });
}

template <SearchScope scope>
constexpr SpeciesAction select_neighbours = [](SpeciesScreen& screen) {
    return screen.select_neighbours([](int species) { simil_tous(1, species, scope); });
};

// clang-format off
constexpr Binding<SpeciesAction> rows[] = {
    {key::enter,         run<&SpeciesScreen::toggle_selection>,         "select or deselect the species"},
    {'m',                run<&SpeciesScreen::toggle_mask>,              "mask the species, or take its mask away"},
    {'+',                run<&SpeciesScreen::next_of_another_ensemble>, "to the next species that is in another ensemble"},
    {'?',                run<&SpeciesScreen::information>,              "what is known about the species, and its group"},
    {key::f1,            run<&SpeciesScreen::help>,                     "help on this screen"},
    {key::f2,            run<&SpeciesScreen::select_all>,               "select all species of the list and leave"},
    {key::shift_f2,      run<&SpeciesScreen::select_free>,              "select those that are in no other ensemble and leave"},
    {key::f5,            select_neighbours<all_species>,                "select the species most similar to it in a fragment"},
    {key::f6,            select_neighbours<listed_species>,             "the same among the species of the list"},
    {key::f8,            run<&SpeciesScreen::assign_group>,             "move the species to the group of its classification"},
    {key::shift_f8,      run<&SpeciesScreen::assign_groups_of_all>,     "the same for all species of the list, and leave"},
    {key::f9,            run<&SpeciesScreen::rename>,                   "rename the species, and choose its group"},
    {key::f10,           run<&SpeciesScreen::choose_group_by_hand>,     "choose the species' group"},
    {key::alt_backspace, destroy_species,                               "delete the species from the alignment"},
    {key::shift_f12,     run<&SpeciesScreen::toggle_hundred>,           "select or deselect the next 100 species and leave"},
    {key::up,            run<&SpeciesScreen::up>,                       "one entry up"},
    {key::down,          run<&SpeciesScreen::down>,                     "one entry down"},
    {key::pgup,          run<&SpeciesScreen::page_up>,                  "ten entries up"},
    {key::pgdn,          run<&SpeciesScreen::page_down>,                "ten entries down"},
    {key::left,          run<&SpeciesScreen::left>,                     "one column left"},
    {key::right,         run<&SpeciesScreen::right>,                    "one column right"},
    {key::escape,        run<&SpeciesScreen::leave>,                    "leave the list"},
};
// clang-format on
static_assert(unique_keys<SpeciesAction>(rows), "a key is bound twice");

} // namespace

constinit const KeyTable<SpeciesAction> species_keys{"Species of a group", rows};

} // namespace kq
