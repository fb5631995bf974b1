// screen: the small questions that several editing commands ask.
#include "editor/prompts.h"

#include "core/store.h"
#include "editor/display.h"
#include "editor/view.h"
#include "screen/dialogs.h"
#include "screen/fields.h"
#include "screen/prompt_field.h"
#include "screen/strings.h"
#include "screen/text.h"

namespace kq {

void draw_rows_again()
{
    affich_all_species();
    affich_all_seq(0);
}

void draw_editor_again()
{
    affich_menu_affich_seq();
    affich_status();
}

void warn(std::string_view message)
{
    affich_avert(message, dialog_line);
    draw_rows_again();
}

bool confirmed(std::string_view question)
{
    const auto answer = confirme(question, dialog_line);
    draw_rows_again();
    return answer == answer_yes;
}

int ask_count(std::string_view prompt, int right_column)
{
    constexpr int most = 10000;
    window_hp(dialog_line, 30, dialog_line + 2, right_column, color::cyan);
    const int field = outtext_prompt(2, prompt, static_cast<int>(prompt.size()) + 4, number_room);
    int count = 1;
    const bool entered = enter_int(count, 0, most, 2, field);
    _clearscreen(1);
    return entered ? count : 0;
}

int require_species()
{
    if (cursor_on_consensus())
        warn(text_format("Change the type of display of the ensemble n%d before", ens_curs + 1));
    return cursor_species();
}

} // namespace kq
