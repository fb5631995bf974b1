// screen: marking a region of columns.
#include "editor/region.h"

#include "editor/display.h"
#include "editor/prompts.h"
#include "editor/view.h"
#include "screen/dialogs.h"

#include <utility>

namespace kq {

Redraw mark_beginning_key()
{
    if (pos_deb != -1) {
        warn("You have already selected the beginning of the region");
        return redraw_all_rows;
    }
    pos_deb = cursor_position();
    affich_penultimate_line(1, 0);
    return redraw_none;
}

Redraw mark_end_key()
{
    if (pos_deb == -1) {
        warn("You must first select the beginning of the region");
        return redraw_all_rows;
    }
    pos_fin = cursor_position();
    if (pos_fin < pos_deb) std::swap(pos_deb, pos_fin);
    affich_penultimate_line(1, 0);
    return leave_editor;
}

int gere_affich_seq_region()
{
    affich_cursor_numbers();
    const Redraw redraw = run_key(region_keys.find(read_key_at_cursor()));
    if (redraw != leave_editor) return 0;
    return pos_fin != -1 ? 1 : -1;
}

int select_region()
{
    kq_mode = 2;
    pos_deb = pos_fin = -1;
    affich_menu_affich_seq();
    int result = 0;
    while (result == 0)
        result = gere_affich_seq_region();
    kq_mode = 0;
    return result == -1 ? escaped : ok;
}

} // namespace kq
