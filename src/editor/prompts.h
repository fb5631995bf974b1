// screen: the small questions that several editing commands ask.
#pragma once

#include <string_view>

namespace kq {

// Line of the warnings, confirmations and menus of the editor.
inline constexpr int dialog_line = 5;

// The rows of the alignment, over what a box has left.
void draw_rows_again();
// The two lines below them, too: after a change of mode.
void draw_editor_again();
// A warning, and a question that only "Yes" answers with true; both draw again the rows that their box
// covered, because another box may follow.
void warn(std::string_view message);
bool confirmed(std::string_view question);
// Asks for a count from 0 to 10000 (1 is proposed) in a box over lines 5 to 7 from column 30 to
// `right_column`; 0 on ESCAPE.
int ask_count(std::string_view prompt, int right_column);
// The warning that a command works on single species only, when the cursor stands on a collapsed ensemble.
// The species under the cursor, or -1 (also when there is no row at all, without a word).
int require_species();

} // namespace kq
