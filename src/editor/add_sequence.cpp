// screen: adding a sequence to the alignment.
#include "editor/add_sequence.h"

#include "core/ali_screen.h"
#include "core/edit.h"
#include "core/store.h"
#include "editor/navigation.h"
#include "editor/prompts.h"
#include "editor/view.h"
#include "raster/keys.h"
#include "screen/dialogs.h"
#include "screen/fields.h"
#include "screen/process_end.h"
#include "screen/prompt_field.h"
#include "screen/strings.h"
#include "screen/text.h"
#include "taxonomy/frame.h"
#include "taxonomy/selection.h"
#include "taxonomy/species_name.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace kq {

namespace {

struct NewSequence {
    std::string name, text;
};

// Upper case, and only what the decoding table holds. Deliberate: "-" and "$" are dropped too.
void clean_sequence(std::string& text)
{
    strupr(text.data());
    const std::string_view letters(caractere);
    std::erase_if(text, [letters](char c) { return letters.find(c) == std::string_view::npos; });
}

constexpr int sequence_line = 4, sequence_column = 3;

// The sequence as a field at rest, over what was typed.
void show_sequence(const std::string& text)
{
    const int room = std::max(_nb_col - sequence_column, 1);
    std::string shown = text.substr(0, static_cast<std::size_t>(room));
    shown.resize(static_cast<std::size_t>(room), ' ');
    _settextcolor(color::light_green);
    _settextposition(sequence_line, sequence_column);
    _outtext(shown);
}

// The form with its two fields: false on ESCAPE.
bool ask_for_sequence(NewSequence& entered)
{
    window_hp(dialog_line, 1, dialog_line + 4, _nb_col, color::cyan);
    const int name_column = outtext_prompt(2, "Name of the new species:", 28);
    outtext_inside(3, 3, color::light_cyan, "Sequence of the new species:");
    bool in_name = true;
    for (;;) {
        const int pressed = in_name ? input_texte(entered.name, identifier_size - 1, 2, name_column)
                                    : input_texte(entered.text, nb_nuc_tot, sequence_line, sequence_column);
        if (!in_name) {
            clean_sequence(entered.text);
            show_sequence(entered.text);
        }
        if (pressed == key::escape) return false;
        const bool validates = pressed == key::enter || pressed == key::down;
        if (in_name) {
            if (holds_file_mark(entered.name))
                refuse_field("No #NEW# #MASKED#");
            else if (validates && !entered.name.empty())
                in_name = false;
        } else if (pressed == key::up) {
            in_name = true;
        } else if (validates && entered.text.empty()) {
            refuse_field("A sequence is needed");
        } else if (validates) {
            return true;
        }
    }
}

bool add_to_store(const NewSequence& entered)
{
    switch (add_species(entered.name + "@", entered.text)) {
    case Adding::added:
        return true;
    case Adding::too_many_species:
        warn("You have already the maximum number of species");
        return false;
    case Adding::too_many_characters:
        warn(text_format("There are too many characters, %ld (MAX = %ld)", (nb_spec + 1L) * (nb_nuc_tot + 1L),
                         seq_capacity));
        return false;
    case Adding::no_memory:
        break;
    }
    write_file_ALI();
    erreur_fatale("Insufficient available memory (realloc ident)");
}

// The new species belongs to the last group and counts as selected there.
void put_into_cupboard(int species)
{
    no_groupe[static_cast<std::size_t>(species)] = cupboard();
    nbtot_groupe[0][static_cast<std::size_t>(cupboard())]++;
    select_species(species);
}

} // namespace

int add_new_sequence()
{
    if (nb_spec >= max_species) {
        warn("You have already the maximum number of species");
        return escaped;
    }
    if (nb_spec_ens[0] >= max_ensemble_species) {
        warn(text_format("You can select at most %d species per ensemble", max_ensemble_species));
        return escaped;
    }
    NewSequence entered;
    const bool filled = ask_for_sequence(entered);
    _clearscreen(1);
    if (!filled || !add_to_store(entered)) return escaped;

    const int species = nb_spec - 1;
    put_into_cupboard(species);
    append_member(0, species);
    mark_changed();
    nb_spec_affich = count_display_rows();
    reactualise(0);
    set_top_row(first_row());
    init_param();
    return ok;
}

} // namespace kq
