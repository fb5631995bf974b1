// screen: the editor's menu of various options.
#include "editor/actions.h"
#include "editor/est_mode.h"
#include "taxonomy/derived_outputs.h"
#include "tools/gap_compaction.h"
#include "tools/realignment.h"

namespace kq {

namespace {

constexpr VariousOption entries[] = {
    {"Using the mode EST", [] { gere_mode_est(); }},
    {"Selecting a region for compacting gaps to left", [] { gere_compact_gap(Direction::left); }},
    {"Selecting a region for compacting gaps to right", [] { gere_compact_gap(Direction::right); }},
    {"Selecting a region for realignment by ClustalW", gere_clustalw},
    {"Writing a .nom file usable by dalvex", [] { write_file_nom(); }},
    {"Writing multiple .ali files (one per ensemble)", write_multiple_ali},
};

} // namespace

constinit const std::span<const VariousOption> various_options{entries};

} // namespace kq
