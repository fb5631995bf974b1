// screen: the editor's keys that look at the species under the cursor or name it.
#include "editor/species_actions.h"

#include "core/store.h"
#include "editor/fasta_view.h"
#include "editor/prompts.h"
#include "editor/view.h"
#include "taxonomy/group_moves.h"
#include "taxonomy/species_info.h"
#include "taxonomy/species_name.h"

namespace kq {

// The boxes may cover the menu line too, so that the whole screen is drawn again.

Redraw information_key()
{
    const int species = require_species();
    if (species >= 0) affich_info(species, no_list);
    return redraw_screen;
}

Redraw rename_key()
{
    const int species = require_species();
    if (species >= 0) change_species_name(species);
    return redraw_screen;
}

Redraw fasta_key()
{
    if (!is_display_row(cursor_row())) return redraw_none;
    affich_fasta(cursor_species());
    return redraw_screen;
}

} // namespace kq
