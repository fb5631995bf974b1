// screen: the editor's main loop.
#include "editor/editor.h"

#include "core/consensus.h"
#include "editor/display.h"
#include "editor/navigation.h"
#include "editor/view.h"
#include "screen/notice.h"

#include <algorithm>

#ifdef KQ_INVARIANTS
#include "core/column_counts.h"
#include "core/store.h"

#include <cstdio>
#include <cstdlib>
#include <string>
#endif

namespace kq {

namespace {

#ifdef KQ_INVARIANTS
void check(const char* what, const std::string& error)
{
    if (error.empty()) return;
    std::fprintf(stderr, "broken invariant of %s: %s\n", what, error.c_str());
    std::abort();
}

// After every action; the checks that read all rows only while the alignment is small.
void check_invariants()
{
    constexpr long small = 200000;
    check("the view", view_error());
    if (static_cast<long>(nb_spec) * nb_nuc_tot > small) return;
    check("the store", store_error());
    check("the column counts", columns_error());
}
#else
void check_invariants() {}
#endif

void draw_again(Redraw redraw)
{
    switch (redraw) {
    case redraw_sequences: // a dialog may have covered identifiers; unchanged cells cost nothing
    case redraw_all_rows:
        affich_all_species();
        affich_all_seq(0);
        break;
    case redraw_screen:
        affich_menu_affich_seq();
        break;
    case redraw_none:
    case leave_editor:
        break;
    }
}

} // namespace

const Binding<EditorAction>* ModeKeys::find(int key) const
{
    if (const auto* binding = own.find(key)) return binding;
    const auto* binding = editor_keys.find(key);
    if (binding && own.folds_case) key = binding->key;
    return std::ranges::find(shared, key) == shared.end() ? nullptr : binding;
}

int read_key_at_cursor()
{
    affich_nuc_site(true);
    const int pressed = read_key_with_notice();
    affich_nuc_site(false);
    return pressed;
}

Redraw run_key(const Binding<EditorAction>* binding)
{
    if (!binding) return redraw_none;
    const Redraw redraw = binding->run();
    if (redraw == leave_editor) return redraw;
    check_invariants();
    draw_again(redraw);
    return redraw;
}

int gere_affich_seq()
{
    affich_status();
    const Redraw redraw = run_key(editor_keys.find(read_key_at_cursor()));
    return redraw == leave_editor ? -1 : 0;
}

int gere_seq()
{
    compute_ligne_consensus();
    prem_ens = prem_spec = 0;
    nb_spec_affich = count_display_rows();
    init_param();
    affich_menu_affich_seq();
    int result = 0;
    while (result == 0)
        result = gere_affich_seq();
    return result;
}

} // namespace kq
