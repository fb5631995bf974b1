// screen: ensembles shown species by species or collapsed to their consensus.
#include "editor/ensemble_display.h"

#include "core/consensus.h"
#include "core/edit.h"
#include "core/store.h"
#include "editor/view.h"

namespace kq {

void toggle_ensemble_display(int e)
{
    if (collapsed(e)) {
        set_collapsed(e, false);
    } else {
        set_collapsed(e, true);
        if (e == prem_ens) prem_spec = 0;
        compute_consensus(e);
    }
    nb_spec_affich = count_display_rows();
    ligne_curs = 1;
    set_cursor_row(top_row());
}

} // namespace kq
