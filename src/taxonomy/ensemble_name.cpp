// screen: naming an ensemble.
#include "taxonomy/ensemble_name.h"

#include "core/edit.h"
#include "screen/fields.h"
#include "screen/prompt_field.h"
#include "screen/text.h"

#include <algorithm>
#include <string>

namespace kq {

void ask_for_ensemble_name(int ens, std::string_view proposal)
{
    constexpr std::string_view prompt = "Ensemble name [ESC for none]: ";
    constexpr int longest_name = 30, first_line = 5;
    constexpr int width = static_cast<int>(prompt.size()) + 33;

    _setbgcolor(color::black);
    const int left = std::max(1, (_nb_col - width - 1) / 2);
    window_hp(first_line, left, first_line + 2, std::min(left + width, _nb_col), color::cyan);
    const int field = outtext_prompt(2, prompt, static_cast<int>(prompt.size()) + 3);

    std::string name(proposal.substr(0, longest_name));
    const bool entered = enter_texte(name, longest_name, 2, field);
    _clearscreen(1);
    set_ensemble_name(ens, entered ? name : "");
}

} // namespace kq
