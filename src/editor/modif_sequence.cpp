// screen: editing a primary sequence.
#include "editor/modif_sequence.h"

#include "core/edit.h"
#include "core/store.h"
#include "editor/display.h"
#include "editor/navigation.h"
#include "editor/prompts.h"
#include "editor/view.h"
#include "raster/grx.h"
#include "screen/dialogs.h"

#include <string_view>

namespace kq {

namespace {

// Deliberate: upper case only, and no "?" in nucleic acids.
bool can_be_typed(int pressed)
{
    constexpr std::string_view nucleic = "ACGUTN*-$ RYMWSKVHDBX";
    constexpr std::string_view protein = "ACDEFGHIKLMNPQRSTVWY*-$ X?";
    if (pressed < ' ' || pressed > '~') return false;
    return (type_seq ? protein : nucleic).find(static_cast<char>(pressed)) != std::string_view::npos;
}

void sequence_changed()
{
    mark_changed();
    reactualise(ens_curs);
}

Redraw type_residue(char c)
{
    const int position = cursor_position();
    if (!insert_residue(cursor_species(), position, c)) {
        ring_bell();
        return redraw_none;
    }
    sequence_changed();
    // A gap that hides its column has taken the cursor past itself already.
    if (cursor_position() == position) deplace_site_droite(1);
    return redraw_sequences;
}

Redraw delete_under_cursor()
{
    const int species = cursor_species();
    if (cursor_position() >= row_length[static_cast<std::size_t>(species)]) return redraw_none;
    delete_residue(species, cursor_position());
    sequence_changed();
    return redraw_sequences;
}

Redraw run_key(int pressed)
{
    if (const auto* binding = primary_keys.find(pressed)) return binding->run();
    return can_be_typed(pressed) ? type_residue(static_cast<char>(pressed)) : redraw_none;
}

} // namespace

Redraw primary_backspace()
{
    const int before = cursor_position();
    const Redraw scrolled = deplace_site_gauche(1);
    if (cursor_position() == before) return scrolled;
    const Redraw deleted = delete_under_cursor();
    return deleted == redraw_none ? scrolled : deleted;
}

Redraw primary_delete()
{
    return delete_under_cursor();
}

void modif_sequence()
{
    if (cursor_species() < 0) return;
    if (confirme("Do you really want to modify this primary sequence?", 1) != answer_yes) return;
    affich_all_species();
    affich_all_seq(0);
    for (;;) {
        affich_cursor_numbers();
        affich_nuc_site(true);
        const int pressed = GrKeyRead();
        affich_nuc_site(false);
        const Redraw redraw = run_key(pressed);
        if (redraw == leave_editor) return;
        if (redraw != redraw_none) affich_all_seq(0);
    }
}

} // namespace kq
