// screen: EST mode.
#include "editor/est_mode.h"

#include "core/columns.h"
#include "core/edit.h"
#include "core/merging.h"
#include "core/store.h"
#include "editor/difference_counter.h"
#include "editor/display.h"
#include "editor/navigation.h"
#include "editor/prompts.h"
#include "editor/species_removal.h"
#include "editor/view.h"
#include "raster/keys.h"
#include "screen/dialogs.h"
#include "screen/strings.h"
#include "screen/text.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace kq {

namespace {

void set_master(int species)
{
    no_seq_ref = species;
    mark_mergeables();
}

// ---- the status line --------------------------------------------------------------------------------------

std::string differences_text(int master)
{
    const auto columns = static_cast<std::size_t>(nb_nuc_tot);
    const auto text = row(master);
    const std::string_view reference{text.data(), std::min(text.size(), columns)};
    const auto found = count_differences_beside(row_text(cursor_row()).text, reference, {delcom, columns},
                                                cursor_position());
    const auto& [left, right] = found;
    const auto whole = text_format("Diff left: %3d (%4.1f)   Diff right: %3d (%4.1f)", left.count,
                                   left.spacing, right.count, right.spacing);
    if (std::ssize(whole) <= _nb_col - cursor_numbers_width) return whole;
    return text_format("%3d (%4.1f) %3d (%4.1f)", left.count, left.spacing, right.count, right.spacing);
}

// From column 30 on; a text that would not fit there begins earlier, at best right after the cursor's
// numbers.
void affich_differences()
{
    constexpr int text_column = 30;
    const int species = cursor_species();
    const bool compared = no_seq_ref != -1 && species != -1 && species != no_seq_ref;
    const auto text = compared ? differences_text(no_seq_ref) : "";
    constexpr int first = cursor_numbers_width + 1;
    const int column = std::clamp(_nb_col - static_cast<int>(text.size()) + 1, first, text_column);
    const std::string line = std::string(static_cast<std::size_t>(column - first), ' ') + text;
    _settextwindow(_nb_line - 1, 1, _nb_line - 1, _nb_col);
    outtext_at(1, first, color::yellow, padded(line, std::max(_nb_col - first + 1, 0)));
    _settextcolor(color::light_grey);
}

// ---- pasting ----------------------------------------------------------------------------------------------

std::string_view species_name(int species)
{
    const auto name = identifier(species);
    return name.substr(0, name.find('@'));
}

// The species under the cursor when it may be pasted into the master, else -1.
int fragment_to_paste()
{
    if (no_seq_ref == -1) {
        warn("You must select a master sequence");
        return -1;
    }
    const int species = require_species();
    if (species == no_seq_ref) {
        warn("You are located on the master sequence");
        return -1;
    }
    if (species == -1 || species_name(species) == species_name(no_seq_ref)) return species;
    return confirmed("Do you want to fuse sequences from different species?") ? species : -1;
}

// Copies what the fragment holds in the columns [first, last). Deliberate: the alignment is marked changed
// even when that is nothing.
void paste(int fragment, int first, int last)
{
    const auto is_blank = [fragment](int p) { return residue(fragment, p) == ' '; };
    while (first < last && is_blank(first))
        first++;
    while (first < last && is_blank(last - 1))
        last--;
    std::string text;
    for (int p = first; p < last; p++)
        text += residue(is_blank(p) ? no_seq_ref : fragment, p);
    mark_changed();
    if (!text.empty()) overwrite(no_seq_ref, first, text);
    reactualise(-1);
}

} // namespace

Redraw paste_right_key()
{
    const int fragment = fragment_to_paste();
    if (fragment != -1) paste(fragment, cursor_position(), nb_nuc_tot);
    return redraw_all_rows;
}

Redraw paste_left_key()
{
    const int fragment = fragment_to_paste();
    if (fragment != -1) paste(fragment, 0, cursor_position());
    return redraw_all_rows;
}

Redraw paste_character_key()
{
    const int fragment = fragment_to_paste();
    if (fragment != -1) paste(fragment, cursor_position(), cursor_position() + 1);
    return redraw_all_rows;
}

// ---- the master -------------------------------------------------------------------------------------------

Redraw choose_master_key()
{
    const int species = cursor_species();
    if (cursor_on_consensus())
        warn("The reference cannot be a consensus sequence");
    else if (species != -1 &&
             (no_seq_ref == -1 || confirmed("Do you want to change the reference sequence?")))
        set_master(species);
    return redraw_all_rows;
}

Redraw destroy_in_est_key()
{
    const int species = cursor_species();
    const bool is_master = species != -1 && species == no_seq_ref;
    if (is_master && !confirmed("Do you want to destroy the reference sequence?")) return redraw_all_rows;
    if (destroy_sequence(Removal::unasked_est) == ok && is_master) set_master(-1);
    return redraw_all_rows;
}

// ---- the loop ---------------------------------------------------------------------------------------------

int gere_affich_seq_est()
{
    affich_cursor_numbers();
    affich_differences();
    const int pressed = read_key_at_cursor();
    const Redraw redraw = run_key(est_keys.find(pressed));
    if (pressed == key::f9) { // the marks follow the new name
        mark_mergeables();
        affich_all_species();
    }
    return redraw == leave_editor ? 1 : 0;
}

int gere_mode_est()
{
    kq_mode = 1;
    set_master(-1);
    affich_menu_affich_seq();
    int result = 0;
    while (result == 0)
        result = gere_affich_seq_est();
    kq_mode = 0;
    return result;
}

} // namespace kq
