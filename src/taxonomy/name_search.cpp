// screen: finding species by the beginning or a part of their name.
#include "taxonomy/name_search.h"

#include "screen/dialogs.h"
#include "screen/fields.h"
#include "screen/prompt_field.h"
#include "screen/text.h"
#include "taxonomy/group_moves.h"
#include "taxonomy/selection.h"
#include "taxonomy/species_screen.h"

#include <string_view>

namespace kq {

std::string part_spec;

namespace {

// Edits part_spec in its box; false on ESCAPE.
bool ask_for_part(int how)
{
    const std::string_view prompt =
        how == search_beginning ? "Beginning of species name:" : "Part of species name:";
    _setbgcolor(color::black);
    window_hp(5, 10, 7, 70, color::cyan);
    const int field = outtext_prompt(2, prompt, static_cast<int>(prompt.size()) + 4);
    const bool entered = enter_texte(part_spec, longest_search, 2, field);
    _clearscreen(1);
    return entered;
}

} // namespace

TreeRedraw cherche_begin_part_ident(int how)
{
    constexpr int found_by_part = -2; // no group, either
    part_spec.clear();
    while (ask_for_part(how)) {
        select_begin_part_ident(how);
        if (nb_spec_gro == 0) {
            affich_avert("There are no species beginning with these characters", 4); // Deliberate: for both
            continue;
        }
        choice_specie(how == search_beginning ? list_without_group : found_by_part);
        return TreeRedraw::screen;
    }
    return TreeRedraw::tree;
}

void select_begin_part_ident(int how)
{
    if (how == search_beginning && !part_spec.empty() && part_spec[0] >= 'a' && part_spec[0] <= 'z')
        part_spec[0] = static_cast<char>(part_spec[0] - 'a' + 'A');
    nb_spec_gro = 0;
    for (int s = 0; s < nb_spec; s++) {
        if (!selectable(s)) continue;
        const std::string_view name = identifier(s);
        const bool found = how == search_beginning ? name.starts_with(part_spec)
                                                   : name.find(part_spec) != std::string_view::npos;
        if (found) cor[static_cast<std::size_t>(nb_spec_gro++)] = s;
    }
}

} // namespace kq
