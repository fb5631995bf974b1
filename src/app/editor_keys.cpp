// screen: the keys of the editor, and those of its primary-sequence mode.
#include "analysis/analysis_run.h"
#include "analysis/nexus_run.h"
#include "core/ali_screen.h"
#include "core/consensus.h"
#include "editor/actions.h"
#include "editor/add_sequence.h"
#include "editor/align_all.h"
#include "editor/editing.h"
#include "editor/editor.h"
#include "editor/ensemble_commands.h"
#include "editor/ensemble_display.h"
#include "editor/modif_sequence.h"
#include "editor/navigation.h"
#include "editor/options_screen.h"
#include "editor/similarity.h"
#include "editor/species_actions.h"
#include "editor/species_removal.h"
#include "editor/view.h"
#include "raster/keys.h"
#include "screen/text.h"
#include "tools/blast_search.h"

namespace kq {

namespace {

constexpr int far = 30; // shown positions of the moves with Ctrl

// For commands that say nothing about what has to be drawn again.
template <auto command>
constexpr EditorAction all_rows = [] {
    command();
    return redraw_all_rows;
};
template <auto command>
constexpr EditorAction whole_screen = [] {
    command();
    return redraw_screen;
};
template <auto command>
constexpr EditorAction sequences = [] {
    command();
    return redraw_sequences;
};

// clang-format off
constexpr Binding<EditorAction> editor_bindings[] = {
    {key::f1,               help_key,                                                  "help"},
    {key::f2,               modify_ensemble_key,                                       "modify an ensemble"},
    {key::f3,               create_ensemble_key,                                       "create an ensemble"},
    {key::f4,               whole_screen<change_affich>,                               "collapse or expand an ensemble"},
    {key::f5,               sequences<write_file_ALI>,                                 "save the alignment"},
    {key::f6,               whole_screen<detruire_ensemble>,                           "discard an ensemble"},
    {key::f7,               whole_screen<tout_auto>,                                   "analyse the ensembles: distances, trees, files"},
    {key::f8,               whole_screen<choice_config_affiche>,                       "options of the display"},
    {key::f9,               rename_key,                                                "rename the species"},
    {key::f10,              change_group_key,                                          "change the group of the species"},

    {key::shift_f1,         other_file_key,                                            "work on another file"},
    {key::shift_f2,         delete_many_key,                                           "delete all gaps at the cursor"},
    {key::tab,              delete_many_key,                                           "delete all gaps at the cursor"},
    {key::shift_f3,         remove_gaps_left_key,                                      "remove gaps left of the cursor"},
    {key::shift_f4,         remove_gaps_right_key,                                     "remove all gaps right of the cursor"},
    {key::shift_f5,         write_outputs_key,                                         "write the ensembles into a file for other programs"},
    {key::shift_f6,         sequences<write_nexus>,                                    "write the ensembles for PAUP, and start it"},
    {key::shift_f7,         inser_star_all,                                            "open gap columns in all other species"},
    {key::insert,           inser_star_all,                                            "open gap columns in all other species"},
    {key::shift_f8,         all_rows<modif_sequence>,                                  "edit the primary sequence"},
    {key::shift_insert,     all_rows<modif_sequence>,                                  "edit the primary sequence"},
    {key::shift_f9,         whole_screen<add_new_sequence>,                            "add a sequence"},
    {key::ctrl_insert,      whole_screen<add_new_sequence>,                            "add a sequence"},
    {key::shift_f10,        window_options_key,                                        "window size and font"},
    {key::shift_f12,        sequences<compute_ligne_consensus>,                        "recompute the consensus line"},
    {key::f11,              [] { return insert_many_key('*'); },                       "insert many \"*\""},
    {key::shift_tab,        [] { return insert_many_key('*'); },                       "insert many \"*\""},
    {key::f12,              [] { return insert_many_key(' '); },                       "insert many blanks"},
    {key::alt_backspace,    all_rows<[] { destroy_sequence(Removal::asked); }>,        "delete the species from the alignment"},
    {key::escape,           end_program_key,                                           "end the program"},
    {key::backspace,        backspace_key,                                             "delete the gap before the cursor"},
    {key::del,              delete_key,                                                "delete the gap under the cursor"},
    {' ',                   [] { return insert_char_key(' '); },                       "insert a blank"},
    {'*',                   [] { return insert_char_key('*'); },                       "insert a \"*\""},
    {'+',                   [] { return scroll_rows(1, 1); },                          "scroll one row down"},
    {'-',                   [] { return scroll_rows(-1, 1); },                         "scroll one row up"},
    {key::alt_keypad_plus,  [] { return scroll_rows(1, half_screen()); },              "scroll half a screen down"},
    {key::alt_keypad_minus, [] { return scroll_rows(-1, half_screen()); },             "scroll half a screen up"},
    {',',                   [] { return seek_in_top_row(typed_pattern, apply_clear_hit, 0, 500); }, "align on the similar residues of the top row"},
    {'/',                   [] { return seek_in_top_row(typed_pattern, show_hits, 1, 200); }, "show similar residues of the top row"},
    {';',                   [] { return seek_in_top_row(short_pattern, show_hits, 1, 100); }, "show residues similar to the next 10"},
    {'.',                   align_once_key,                                            "align on the next gap of the top row"},
    {'A',                   align_all_key,                                             "align on all gaps of the top row"},
    {'B',                   next_score_key,                                            "another score beside the names, or none"},
    {'C',                   next_difference_key,                                       "next difference from the top row"},
    {'D',                   all_rows<discard_species>,                                 "take the species out of its ensemble"},
    {'E',                   all_rows<[] { toggle_ensemble_display(ens_curs); }>,       "collapse or expand the ensemble"},
    {'F',                   fasta_key,                                                 "the sequence in FASTA form, in a file, too"},
    {'M',                   magic_move,                                                "to the top row of the screen"},
    {'O',                   choice_various_options,                                    "various options"},
    {'P',                   partial_key,                                               "the sequence is partial"},
    {'S',                   gere_similitude,                                           "menu of similarity searches"},
    {'T',                   whole_screen<choose_and_sort>,                             "sort an ensemble by name"},
    {'U',                   all_rows<supprime_gap>,                                    "remove all gaps of the sequence"},
    {'X',                   shorten_key,                                               "shorten the sequence"},
    {'Z',                   whole_screen<gere_blast>,                                  "search the sequence in all species with BLAST"},
    {'?',                   information_key,                                           "what is known about the species, and its group"},
    {key::home,             goto_debut,                                                "first position"},
    {key::end,              goto_fin,                                                  "last position"},
    {key::left,             [] { return deplace_site_gauche(1); },                     "one position left"},
    {key::right,            [] { return deplace_site_droite(1); },                     "one position right"},
    {key::ctrl_left,        [] { return deplace_site_gauche(far); },                   "30 positions left"},
    {key::ctrl_right,       [] { return deplace_site_droite(far); },                   "30 positions right"},
    {key::up,               [] { return deplace_curseur_haut(1); },                    "one row up"},
    {key::down,             [] { return deplace_curseur_bas(1); },                     "one row down"},
    {key::pgup,             [] { return deplace_curseur_haut(_nb_line - 2); },         "one screen up"},
    {key::pgdn,             [] { return deplace_curseur_bas(_nb_line - 2); },          "one screen down"},
    {key::ctrl_up,          [] { return deplace_curseur_haut(half_screen()); },        "half a screen up"},
    {key::ctrl_down,        [] { return deplace_curseur_bas(half_screen()); },         "half a screen down"},
};

constexpr Binding<PrimaryAction> primary_bindings[] = {
    {key::escape,     [] { return leave_editor; },             "back to the editor"},
    {key::left,       [] { return deplace_site_gauche(1); },   "one position left"},
    {key::right,      [] { return deplace_site_droite(1); },   "one position right"},
    {key::ctrl_left,  [] { return deplace_site_gauche(far); }, "30 positions left"},
    {key::ctrl_right, [] { return deplace_site_droite(far); }, "30 positions right"},
    {key::home,       goto_debut,                              "first position"},
    {key::end,        goto_fin,                                "last position"},
    {key::backspace,  primary_backspace,                       "delete the character before the cursor"},
    {key::del,        primary_delete,                          "delete the character under the cursor"},
};
// clang-format on

static_assert(unique_keys<EditorAction>(editor_bindings), "a key is bound twice");
static_assert(unique_keys<PrimaryAction>(primary_bindings), "a key is bound twice");

} // namespace

constinit const KeyTable<EditorAction> editor_keys = {"Editor", editor_bindings, true};
constinit const KeyTable<PrimaryAction> primary_keys = {"Primary sequence", primary_bindings};

} // namespace kq
