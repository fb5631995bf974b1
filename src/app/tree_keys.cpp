// model: the keys of the tree screen.
#include "analysis/analysis_run.h"
#include "analysis/nexus_run.h"
#include "raster/keys.h"
#include "taxonomy/tree_colours.h"
#include "taxonomy/tree_screen.h"

namespace kq {

namespace {

// clang-format off
constexpr Binding<TreeAction> rows[] = {
    {key::f1,        &TreeScreen::help,              "help on this screen"},
    {key::f2,        &TreeScreen::select_all,        "select every species below the current node"},
    {key::shift_f2,  &TreeScreen::select_free,       "select those that are in no other ensemble"},
    {'N',            &TreeScreen::select_new,        "select the new EST sequences below the current node"},
    {'<',            &TreeScreen::select_complete,   "select those with at most some percentage of missing characters"},
    {'>',            &TreeScreen::select_incomplete, "select those with more than some percentage of missing characters"},
    {key::f3,        &TreeScreen::finish,            "the selection becomes the ensemble"},
    {key::shift_f3,  &TreeScreen::name_ensemble,     "name the ensemble"},
    {key::f4,        &TreeScreen::deselect,          "deselect all species, or those below the current node"},
    {key::f5,        &TreeScreen::reorder,           "reorder the selected species"},
    {key::f6,        &TreeScreen::list_cupboard,     "the species of \"Cupboard\", one by one"},
    {key::f7,        &TreeScreen::save_list,         "archive the selection as a list of species"},
    {key::f8,        &TreeScreen::load_list,         "load a list of species; rename and delete lists"},
    {key::f9,        &TreeScreen::search_beginning_of_name, "the species whose name begins with a text, one by one"},
    {key::f10,       &TreeScreen::search_part_of_name,      "the species whose name contains a text, one by one"},
    {key::enter,     &TreeScreen::list_species,      "the species below the current node, one by one"},
    {key::shift_f5,  &TreeScreen::write_outputs,     "write the selected species into a file for other programs"},
    {key::shift_f6,  &TreeScreen::on_stored_selection<write_nexus>, "write the ensembles and the selected species for PAUP, and start it"},
    {key::shift_f7,  &TreeScreen::on_stored_selection<tout_auto>,   "analyse the ensembles and the selected species: distances, trees, files"},
    {key::shift_f9,  &TreeScreen::write_groups,      "write the list of all species and their groups"},
    {key::shift_f10, &TreeScreen::window_options,    "window size and font"},
    {key::f11,       &TreeScreen::colour_all_groups, "change the colours of all groups, on a list"},
    {key::shift_f11, &TreeScreen::colour_leaves,     "change the colours of the groups in view, from the current leaf on"},
    {key::shift_f12, &TreeScreen::choose_colours,    "choose another file of group colours"},
    {key::home,      &TreeScreen::to_root,           "to the root of the view"},
    {key::up,        &TreeScreen::up,                "one leaf up"},
    {key::down,      &TreeScreen::down,              "one leaf down"},
    {key::pgup,      &TreeScreen::four_up,           "four leaves up"},
    {key::pgdn,      &TreeScreen::four_down,         "four leaves down"},
    {key::left,      &TreeScreen::to_parent,         "to the parent; from the root of a subtree back to the enclosing view"},
    {key::right,     &TreeScreen::into_subtree,      "into the subtree behind an arrow"},
    {key::backspace, &TreeScreen::split_bacteria,    "first ensemble, nothing selected: five ensembles of bacteria"},
    {key::shift_f1,  &TreeScreen::other_alignment,   "load another alignment"},
    {key::escape,    &TreeScreen::quit,              "leave the program"},
};

constexpr std::string_view colour_note = "give the group of the leaf the colour of this key";
constexpr Binding<TreeColourAction> colour_rows[] = {
    {key::up,     &TreeColourScreen::up,     "one leaf up"},
    {key::down,   &TreeColourScreen::down,   "one leaf down"},
    {key::f5,     &TreeColourScreen::save,   "write the colour file and return"},
    {key::escape, &TreeColourScreen::cancel, "return to the colours of the file"},
    {'0',         &TreeColourScreen::recolour, colour_note, '9'},
    {'/',         &TreeColourScreen::recolour, colour_note},
    {'*',         &TreeColourScreen::recolour, colour_note},
    {'-',         &TreeColourScreen::recolour, colour_note},
    {'+',         &TreeColourScreen::recolour, colour_note},
    {'.',         &TreeColourScreen::recolour, colour_note},
};
// clang-format on
static_assert(unique_keys<TreeColourAction>(colour_rows), "a key is bound twice");
static_assert(unique_keys<TreeAction>(rows), "a key is bound twice");

} // namespace

constinit const KeyTable<TreeAction> tree_keys{"Tree screen", rows, true};
constinit const KeyTable<TreeColourAction> tree_colour_keys{"Colours on the tree", colour_rows};

} // namespace kq
