// model: the keys of the chooser of species lists.
#include "raster/keys.h"
#include "taxonomy/list_chooser.h"

namespace kq {

namespace {

// clang-format off
constexpr Binding<ListAction> rows[] = {
    {key::up,     &ListChooser::move,   "previous list"},
    {key::down,   &ListChooser::move,   "next list"},
    {key::pgup,   &ListChooser::move,   "a third of the lines up"},
    {key::pgdn,   &ListChooser::move,   "a third of the lines down"},
    {key::left,   &ListChooser::move,   "one column to the left"},
    {key::right,  &ListChooser::move,   "one column to the right"},
    {key::enter,  &ListChooser::choose, "look at the list: then load (Enter, or F3 to compare without accession numbers), rename or delete it"},
    {key::escape, &ListChooser::leave,  "return without loading"},
};
// clang-format on
static_assert(unique_keys<ListAction>(rows), "a key is bound twice");

} // namespace

constinit const KeyTable<ListAction> list_keys{"Species lists", rows};

} // namespace kq
