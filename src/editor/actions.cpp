// screen: what the editor's keys run, where a command is more than one call.
#include "editor/actions.h"

#include "core/ali_screen.h"
#include "core/consensus.h"
#include "core/edit.h"
#include "core/options.h"
#include "core/shutdown.h"
#include "core/store.h"
#include "editor/display.h"
#include "editor/editing.h"
#include "editor/ensemble_commands.h"
#include "editor/navigation.h"
#include "editor/prompts.h"
#include "editor/view.h"
#include "screen/dialogs.h"
#include "screen/help.h"
#include "screen/text.h"
#include "screen/window.h"
#include "taxonomy/derived_outputs.h"
#include "taxonomy/ensembles.h"
#include "taxonomy/frame.h"
#include "taxonomy/frame_layout.h"
#include "taxonomy/group_assignment.h"
#include "taxonomy/group_moves.h"

#include <string_view>
#include <vector>

namespace kq {

namespace {

bool any_collapsed()
{
    for (int ensemble = 0; ensemble < nb_ens; ensemble++)
        if (collapsed(ensemble)) return true;
    return false;
}

// Draws what an edit at the cursor changed: from the cursor on, or all rows when the area has scrolled. The
// consensus of an ensemble may have caught up with earlier edits left of the cursor.
Redraw draw_from_cursor(int first_position_before)
{
    if (dec_pos_curs != first_position_before || any_collapsed()) return redraw_sequences;
    affich_all_seq(pos_curs);
    return redraw_none;
}

} // namespace

// ---- characters at the cursor

Redraw insert_char_key(char c)
{
    const int first = dec_pos_curs;
    const bool refused = add_char(c) != ok;
    reactualise(-1);
    // The warning of a refusal has covered rows from their beginning.
    return refused ? redraw_all_rows : draw_from_cursor(first);
}

Redraw insert_many_key(char c)
{
    const int n =
        ask_count(c == '*' ? "Number of stars to be added =" : "Number of spaces to be added =", 70);
    if (n > 0) {
        add_chars(c, n);
        reactualise(-1);
    }
    return redraw_sequences;
}

Redraw delete_key()
{
    const int first = dec_pos_curs;
    if (suppr_char() != ok) return redraw_none;
    reactualise(ens_curs);
    return draw_from_cursor(first);
}

Redraw backspace_key()
{
    const int first = dec_pos_curs, position = cursor_position();
    deplace_site_gauche(1);
    if (cursor_position() != position) {
        if (suppr_char() == ok) {
            reactualise(ens_curs);
            return draw_from_cursor(first);
        }
        deplace_site_droite(1);
    }
    return dec_pos_curs == first ? redraw_none : redraw_sequences;
}

Redraw delete_many_key()
{
    const int first = dec_pos_curs;
    suppr_all_chars();
    reactualise(ens_curs);
    return draw_from_cursor(first);
}

// ---- sequences

Redraw remove_gaps_left_key()
{
    remove_gap_gauche();
    reactualise(ens_curs);
    return redraw_sequences;
}

Redraw remove_gaps_right_key()
{
    remove_gap_droite();
    reactualise(ens_curs);
    return redraw_all_rows;
}

Redraw shorten_key()
{
    put_X();
    reactualise(-1);
    return redraw_all_rows;
}

Redraw partial_key()
{
    sequence_partielle();
    reactualise(ens_curs);
    return redraw_all_rows;
}

Redraw change_group_key()
{
    if (const int species = require_species(); species >= 0) change_groupe(species, no_list, MoveHow::chosen);
    return redraw_screen;
}

// ---- moves

Redraw scroll_rows(int direction, int times)
{
    for (int i = 0; i < times; i++)
        deplace_only_species(direction);
    return redraw_all_rows;
}

Redraw next_difference_key()
{
    cherche_diff();
    return redraw_all_rows;
}

int half_screen()
{
    return _nb_line / 2 - 1;
}

// ---- files, windows, menus

Redraw help_key()
{
    _aide("KQ4", 1, 1, _nb_line - 2, _nb_col);
    return redraw_all_rows;
}

Redraw modify_ensemble_key()
{
    return modif_ensemble() == rebuild_failed ? leave_editor : redraw_screen;
}

Redraw create_ensemble_key()
{
    if (nb_ens == max_ensembles) return redraw_none;
    if (confirme("Do you want to create a new ensemble?", dialog_line) != answer_yes) return redraw_sequences;
    const int ensemble = add_ensemble();
    if (ensemble < 0) {
        warn("Insufficient available memory");
        return redraw_screen;
    }
    if (construct_ensemble(ensemble) != ok) {
        remove_ensemble(ensemble);
        return leave_editor;
    }
    compute_consensus(ensemble);
    compute_ligne_consensus(); // counts the new members
    nb_spec_affich = count_display_rows();
    init_param();
    return redraw_screen;
}

Redraw other_file_key()
{
    if (verif_sauvegarde() == escaped) return redraw_all_rows;
    return confirmed("Do you want to work on another file?") ? leave_editor : redraw_all_rows;
}

Redraw end_program_key()
{
    if (verif_sauvegarde() != escaped) confirme_fin_prog(1);
    return redraw_sequences;
}

Redraw window_options_key()
{
    choice_option_window(program_title);
    if (proot) adjust_frame(); // the tree is drawn in cells of the new size
    settle_cursor();
    return redraw_screen;
}

// The consensus of the ensembles leaves every ensemble shown species by species.
Redraw write_outputs_key()
{
    write_file_kel_ali();
    nb_spec_affich = count_display_rows();
    settle_cursor();
    return redraw_screen;
}

Redraw next_score_key()
{
    opt_evalue = (opt_evalue + 1) % 3;
    return redraw_screen;
}

Redraw choice_various_options()
{
    constexpr int entry_width = 50;
    std::vector<std::string_view> labels;
    for (const auto& option : various_options)
        labels.push_back(option.text);
    const int chosen = _choice_option(dialog_line, 0, labels, entry_width);
    if (chosen == escaped) return redraw_screen;
    draw_rows_again(); // the next box may be a smaller one
    if (const auto run = various_options[static_cast<std::size_t>(chosen)].run) run();
    return redraw_screen;
}

} // namespace kq
