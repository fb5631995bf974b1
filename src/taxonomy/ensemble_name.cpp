// screen: naming an ensemble.
#include "taxonomy/ensemble_name.h"

#include "core/edit.h"
#include "raster/keys.h"
#include "screen/fields.h"
#include "screen/text.h"

#include <algorithm>
#include <string>

namespace kq {

void ask_for_ensemble_name(int ens, std::string_view proposal)
{
    constexpr std::string_view prompt = "Ensemble name [ESC for none]: ";
    constexpr int longest_name = 30, first_line = 5;
    constexpr int prompt_column = 3, field_column = prompt_column + static_cast<int>(prompt.size());
    constexpr int width = static_cast<int>(prompt.size()) + 33;

    _setbgcolor(color::black);
    const int left = std::max(1, (_nb_col - width - 1) / 2);
    window_hp(first_line, left, first_line + 2, std::min(left + width, _nb_col), color::cyan);
    const int shown_columns = y2_win - y1_win + 1;
    // In a narrow window the field needs the room more than the end of the prompt does.
    const int field = std::max(prompt_column, std::min(field_column, shown_columns - 12));
    outtext_at(2, prompt_column, color::light_cyan,
               prompt.substr(0, static_cast<std::size_t>(field - prompt_column)));

    std::string name(proposal.substr(0, longest_name));
    int pressed = 0;
    do
        pressed = input_texte(name, longest_name, 2, field);
    while (pressed != key::enter && pressed != key::escape);
    _clearscreen(1);
    set_ensemble_name(ens, pressed == key::enter ? name : "");
}

} // namespace kq
