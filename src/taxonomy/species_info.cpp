// screen: the box with what is known about a species.
#include "taxonomy/species_info.h"

#include "core/inf_record.h"
#include "core/store.h"
#include "raster/keys.h"
#include "screen/dialogs.h"
#include "screen/directories.h"
#include "screen/files.h"
#include "screen/strings.h"
#include "screen/text_box.h"
#include "taxonomy/classification.h"
#include "taxonomy/frame.h"
#include "taxonomy/group_assignment.h"

#include <algorithm>
#include <iterator>
#include <new>
#include <vector>

namespace kq {

namespace {

constexpr std::string_view legend = "Press any key to continue (F8 to change the group)";
constexpr int memory_warning_line = 5;
constexpr std::size_t least_accession = 5; // characters, "@" included

std::string group_sentence(int species)
{
    const std::string name(identifier(species));
    const int group = no_groupe[static_cast<std::size_t>(species)];
    return text_format("This species is %s (%s)", name.c_str(), group < 0 ? "" : groupe[group]);
}

// The rows of the box; the record goes to `record`. The lines of the record are cut, the sentences wrapped.
std::vector<std::string> info_rows(int species, InfRecord& record)
{
    std::vector<std::string> rows = wrap_text(group_sentence(species), text_box_width());
    const std::string path = with_extension(dir_SEQ + file_ALI, ".inf");
    const std::string_view name = identifier(species);
    const std::size_t at = std::min(name.find('@'), name.size());
    if (name.size() - at < least_accession && readable(path)) {
        rows.emplace_back("There is no accession number");
    } else if (record = read_inf_record(path, accession_of(name)); !record.readable) {
        const std::string message = text_format("The file, %s, does not exist", path.c_str());
        std::ranges::move(wrap_text(message, text_box_width()), std::back_inserter(rows));
    } else {
        rows.push_back(record.organism);
        rows.insert(rows.end(), record.lines.begin(), record.lines.end());
    }
    const auto room = static_cast<std::size_t>(text_box_height(legend));
    if (rows.size() > room) rows.resize(room);
    return rows;
}

} // namespace

int affich_info(int species, int group)
{
    InfRecord record;
    std::vector<std::string> rows;
    try {
        rows = info_rows(species, record);
    } catch (const std::bad_alloc&) {
        affich_avert("Insufficient available memory for this function", memory_warning_line);
        return 0;
    }
    if (show_text_box(rows, legend) != key::f8) return 0;
    const std::vector<std::string_view> lines(record.lines.begin(), record.lines.end());
    const std::string text = classification_in(lines);
    if (text.empty()) {
        report_no_classification();
        return 0;
    }
    return change_groupe(species, group, MoveHow::reported, text) == ok ? 1 : 0;
}

} // namespace kq
