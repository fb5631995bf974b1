// screen: a box with prompts and the fields behind them.
#include "screen/prompt_field.h"

#include "screen/dialogs.h"
#include "screen/text.h"

#include <algorithm>
#include <string>

namespace kq {

namespace {

constexpr int prompt_column = 3;

} // namespace

int outtext_prompt(int line, std::string_view prompt, int field_column, int least_room)
{
    // In a narrow window the field needs the room more than the end of the prompt does.
    const int shown_columns = y2_win - y1_win + 1;
    const int field = std::max(prompt_column, std::min(field_column, shown_columns + 1 - least_room));
    outtext_at(line, prompt_column, color::light_cyan,
               prompt.substr(0, static_cast<std::size_t>(std::max(0, field - prompt_column - 1))));
    return field;
}

void refuse_field(std::string_view reason)
{
    ring_bell();
    outtext_inside(x2_win - x1_win + 1, prompt_column, color::light_red, ' ' + std::string(reason) + ' ');
}

} // namespace kq
