// screen: what the editor's keys run, where a command is more than one call.
#pragma once

#include "editor/redraw.h"

#include <span>
#include <string_view>

namespace kq {

// ---- characters at the cursor
Redraw insert_char_key(char c); // one character, drawn from the cursor on
Redraw insert_many_key(char c); // asks how many
Redraw delete_key();            // the character under the cursor
Redraw backspace_key();         // the character before it
Redraw delete_many_key();       // all gaps from the cursor on

// ---- sequences
Redraw remove_gaps_left_key();
Redraw remove_gaps_right_key();
Redraw shorten_key();
Redraw partial_key();
Redraw change_group_key(); // asks for the group of the cursor's species

// ---- moves
Redraw scroll_rows(int direction, int times);
Redraw next_difference_key();
int half_screen(); // rows of the moves by half a screen

// ---- files, windows, menus
Redraw help_key();
Redraw modify_ensemble_key();
Redraw create_ensemble_key();
Redraw other_file_key();  // save check, then whether to leave the editor
Redraw end_program_key(); // save check, then the exit confirmation
Redraw window_options_key();
Redraw write_outputs_key();
Redraw choice_various_options(); // the menu of key O
Redraw next_score_key();         // another score beside identifiers

struct VariousOption {
    std::string_view text; // at most 50 characters
    void (*run)();         // null: nothing yet
};
extern const std::span<const VariousOption> various_options; // app/various_options.cpp

} // namespace kq
