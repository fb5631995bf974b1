// screen: a sequence in FASTA form: in a file, in the viewer and in a box.
#include "editor/fasta_view.h"

#include "core/store.h"
#include "editor/prompts.h"
#include "editor/view.h"
#include "screen/dialogs.h"
#include "screen/files.h"
#include "screen/process.h"
#include "screen/strings.h"
#include "screen/text_box.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace kq {

namespace {

constexpr int line_length = 70; // residues of a line on the screen
constexpr std::string_view left_out = " ?*$-";

struct FastaRecord {
    std::string header, sequence;
};

FastaRecord fasta_record(int species)
{
    FastaRecord record;
    std::string_view text;
    if (collapsed(ens_curs)) {
        record.header = text_format(">Ensemble%d|%s", ens_curs + 1, ens_names[ens_curs]);
        text = row_text({ens_curs, 0}).text;
    } else {
        record.header = ">" + std::string(identifier(species));
        text = {row(species).data(), row(species).size()};
    }
    std::ranges::copy_if(text, std::back_inserter(record.sequence),
                         [](char c) { return left_out.find(c) == std::string_view::npos; });
    return record;
}

// Without a viewer the box on the screen is enough.
void start_viewer(const std::string& path)
{
    const std::string viewer = chosen_program("KQ_VIEWER", "/usr/bin/kwrite");
    // No viewer shall take the name for an option.
    const std::string file = path.starts_with('-') ? "./" + path : path;
    start_in_background(std::array{viewer, file});
}

std::vector<std::string> box_rows(const FastaRecord& record)
{
    const auto width = static_cast<std::size_t>(std::min(line_length, text_box_width()));
    std::vector<std::string> rows{record.header};
    // A last line that is full has an empty one below it.
    for (std::size_t i = 0; i <= record.sequence.size(); i += width)
        rows.push_back(record.sequence.substr(i, width));
    return rows;
}

} // namespace

int affich_fasta(int species)
{
    const FastaRecord record = fasta_record(species);
    const std::string path = with_extension(file_ALI, ".fasta");
    const std::string error = write_file_safely(path, record.header + "\n" + record.sequence + "\n");
    if (error.empty())
        start_viewer(path);
    else
        warn(error);
    return show_text_box(box_rows(record), "Press any key to continue");
}

} // namespace kq
