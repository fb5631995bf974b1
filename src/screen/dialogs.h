// screen: modal dialogs: warnings, confirmations, menus, the overwrite question.
//
// `line` is the screen line at which a box starts; a box that would leave the screen is moved into it.
// Menus longer than the screen scroll.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace kq {

// Results of dialogs and screens.
inline constexpr int ok = 0;
inline constexpr int escaped = -1; // ESCAPE or refusal
inline constexpr int reread = -2;  // a directory listing has to be read again

// Shows the message until a key is pressed, then clears the box.
void affich_avert(std::string_view message, int line);
// Leaves the box on the screen, with a legend where there is one, shows it at once and returns whether a key
// is waiting.
bool affich_avert_no_key(std::string_view message, int line, std::string_view legend = "");
// A box with one line of text, without waiting ("NOW READING", "WORK IN PROGRESS"...): lines `line` to line +
// 2, columns c1 to c2, framed and written in `c`; shown at once.
void affich_progress(std::string_view message, int line, int c1, int c2, int c);

void ring_bell(); // the BEL character on standard output

enum Answer : int { answer_yes = 0, answer_no = 1, answer_escape = -1 };
Answer confirme(std::string_view question, int line);
void color_case_confirme(int which, bool highlighted, int column);

// A vertical menu; returns the index, or `escaped`. `width` is the width of the items.
int _choice_option(int line, int current, std::span<const std::string_view> labels, int width);
// The items of such a menu in the text window as it stands, from its line 2 on, for a box of the caller's
// own; the window stays as it is.
int choose_in_window(std::span<const std::string_view> labels, int width);
void _color_case_option(std::span<const std::string_view> labels, int width, int index, bool highlighted);

// 0 = the file does not exist or overwriting is confirmed, -1 = cancelled.
int confirme_ecrase_file(const std::string& path, int line);

} // namespace kq
