// screen: the keys of region selection.
#include "editor/region.h"
#include "raster/keys.h"

namespace kq {

namespace {

// clang-format off
constexpr Binding<EditorAction> own[] = {
    {'(',         mark_beginning_key,           "the region begins at the cursor"},
    {')',         mark_end_key,                 "the region ends at the cursor"},
    {key::escape, [] { return leave_editor; },  "give up"},
};

// Deliberate: of the letters only "m" works in lower case, too.
constexpr int shared[] = {
    key::f4, key::f5, 'M', 'm', '+', '-', key::alt_keypad_plus, key::alt_keypad_minus,
    key::home, key::end, key::left, key::right, key::ctrl_left, key::ctrl_right,
    key::up, key::down, key::pgup, key::pgdn, key::ctrl_up, key::ctrl_down,
};
// clang-format on
static_assert(unique_keys<EditorAction>(own), "a key is bound twice");

} // namespace

constinit const ModeKeys region_keys{{"Marking a region", own}, shared};

} // namespace kq
