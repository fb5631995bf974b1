// screen: renaming a species.
#include "taxonomy/species_name.h"

#include "core/edit.h"
#include "core/store.h"
#include "raster/keys.h"
#include "screen/dialogs.h"
#include "screen/fields.h"
#include "screen/prompt_field.h"
#include "screen/text.h"
#include "taxonomy/frame.h"
#include "taxonomy/frame_files.h"
#include "taxonomy/group_assignment.h"
#include "taxonomy/group_files.h"
#include "taxonomy/nom_file.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace kq {

namespace {

constexpr int box_line = 5, question_line = 5;
constexpr int longest_name = identifier_size - 1;

// Whether the files can hold the name: one that is read back as something else is none.
bool can_be_kept(std::string_view name)
{
    return name.find('@') == std::string_view::npos && !holds_file_mark(name) && fits_in_nom_line(name);
}

// "Genus species": two words, one blank.
bool two_words(std::string_view name)
{
    return std::ranges::count(name, ' ') == 1 && name.front() != ' ' && name.back() != ' ';
}

// What is wrong with a name of two words or more; empty when nothing is.
std::string name_fault(std::string_view name)
{
    if (!two_words(name)) return "Genus, one blank, species";
    return can_be_kept(name) ? "" : "No @ , #NEW# #MASKED#";
}

// Edits the name in its box; false when the user gives up.
bool ask_for_name(std::string& name)
{
    std::string fault;
    int pressed = 0;
    do {
        _setbgcolor(color::black);
        window_hp(box_line, 30, box_line + 2, 90, color::cyan);
        const int field = outtext_prompt(2, "New species name:", 21);
        if (!fault.empty()) refuse_field(fault);
        do {
            pressed = input_texte(name, longest_name, 2, field);
        } while (pressed != key::enter && pressed != key::escape);
        if (name.find(' ') == std::string::npos) pressed = key::escape;
        fault = name_fault(name);
    } while (pressed != key::escape && !fault.empty());
    _clearscreen(1);
    return pressed == key::enter;
}

// The name's line in the species-to-group file.
void offer_group_line(int species)
{
    if (confirme("Do you want to save this new name in " + file_NOM, question_line) != answer_yes) return;
    const int group = no_groupe[static_cast<std::size_t>(species)];
    const std::string error = rewrite_group_line(nom_key(identifier(species)), group_name(group));
    if (!error.empty()) affich_avert(error, question_line);
}

} // namespace

bool holds_file_mark(std::string_view name)
{
    return name.find("#NEW#") != std::string_view::npos || name.find("#MASKED#") != std::string_view::npos;
}

int change_species_name(int species)
{
    const std::string before(identifier(species));
    const std::size_t at = std::min(before.find('@'), before.size());
    const std::string accession = before.substr(std::min(at + 1, before.size()));
    std::string name = before.substr(0, at);
    if (!ask_for_name(name)) return escaped;
    set_identifier(species, name + '@' + accession);
    mark_changed();
    if (no_groupe[static_cast<std::size_t>(species)] >= 0) offer_group_line(species);
    return ok;
}

} // namespace kq
