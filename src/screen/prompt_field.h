// screen: a box with prompts and the fields behind them.
#pragma once

#include <string_view>

namespace kq {

// Columns that a field has at least, the frame included.
inline constexpr int text_room = 13, number_room = 6;
// Writes a prompt at (line, 3) of a box; returns the column of its field: the one given, or in a box that a
// narrow window has cut one further left, where the prompt is cut a blank before it.
int outtext_prompt(int line, std::string_view prompt, int field_column, int least_room = text_room);

// Says on the lower frame of the box why a field is not accepted, and rings the bell.
void refuse_field(std::string_view reason);

} // namespace kq
