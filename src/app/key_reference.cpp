// model: the key reference, printed from the key tables of the screens.
#include "app/key_reference.h"

#include "core/chooser.h"
#include "editor/editor.h"
#include "editor/est_mode.h"
#include "editor/modif_sequence.h"
#include "editor/region.h"
#include "raster/key_names.h"
#include "taxonomy/group_list.h"
#include "taxonomy/list_chooser.h"
#include "taxonomy/reorder_screen.h"
#include "taxonomy/species_screen.h"
#include "taxonomy/tree_colours.h"
#include "taxonomy/tree_screen.h"

namespace kq {

namespace {

// Neighbouring rows with one note are one line: several keys, one effect.
template <class Action>
void print_table(std::string& text, const KeyTable<Action>& table)
{
    text += "\n## " + std::string(table.title) + "\n\n| Key | What it does |\n| --- | --- |\n";
    const auto rows = table.rows;
    for (std::size_t i = 0; i < rows.size(); i++) {
        text += i > 0 && rows[i].note == rows[i - 1].note ? ", " : "| ";
        text += '`' + key_name(rows[i].key) + '`';
        if (rows[i].last != rows[i].key) text += " to `" + key_name(rows[i].last) + '`';
        if (i + 1 == rows.size() || rows[i + 1].note != rows[i].note)
            text += " | " + std::string(rows[i].note) + " |\n";
    }
    if (table.folds_case) text += "\nLetters work in upper and lower case.\n";
}

void print_mode(std::string& text, const ModeKeys& mode)
{
    print_table(text, mode.own);
    text += "\nAs in the editor:";
    for (const int key : mode.shared)
        if (editor_keys.find(key)) text += " `" + key_name(key) + '`';
    text += '\n';
}

} // namespace

std::string key_reference()
{
    std::string text =
        "# Keys\n\nPrinted from the program's own key tables by `kq-keys`. `S-`, `C-` and `A-` stand "
        "for Shift, Ctrl and Alt.\nIn boxes, ENTER confirms and ESCAPE cancels; in menus, Up, Down, "
        "PgUp and PgDn move the highlight.\n";
    print_table(text, chooser_keys);
    print_table(text, tree_keys);
    print_table(text, tree_colour_keys);
    print_table(text, species_keys);
    print_table(text, reorder_keys);
    print_table(text, group_choice_keys);
    print_table(text, group_colour_keys);
    print_table(text, list_keys);
    print_table(text, editor_keys);
    print_table(text, primary_keys);
    print_mode(text, est_keys);
    print_mode(text, region_keys);
    return text;
}

} // namespace kq
