// screen: searching the species under the cursor in the alignment with BLAST.
#include "tools/blast_search.h"

#include "analysis/progress.h"
#include "core/options.h"
#include "core/store.h"
#include "editor/prompts.h"
#include "editor/similarity_hits.h"
#include "editor/species_line.h"
#include "editor/view.h"
#include "screen/dialogs.h"
#include "screen/private_directory.h"
#include "screen/process.h"
#include "screen/result_table.h"
#include "screen/strings.h"
#include "screen/text.h"
#include "taxonomy/text_file.h"
#include "tools/blast_commands.h"
#include "tools/sent_region.h"

#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace kq {

static_assert(max_blast_hits == max_hits, "tophits counts both");

constinit std::array<BlastHit, max_blast_hits> blasttable{};

namespace {

// ---- the programs -----------------------------------------------------------------------------------------

// Ends with "/"; "" = where PATH says.
std::string program_directory()
{
    const char* const chosen = std::getenv("KQ_BLAST_BIN");
    if (chosen && *chosen) {
        std::error_code failed; // without a current directory the path stays as it is
        // The programs run in another directory than this one.
        const auto whole = std::filesystem::absolute(chosen, failed).string();
        return (failed ? chosen : whole) + '/';
    }
    const std::string usual(blast_directory);
    return access((usual + "formatdb").c_str(), X_OK) == 0 ? usual : "";
}

// The beginning of what a program has said, but for warnings.
std::string complaint(const std::string& path)
{
    constexpr std::size_t longest = 200;
    std::string text, said;
    if (!read_whole_file(path, text).empty()) return "";
    for (std::string_view rest = text; !rest.empty() && said.size() < longest;) {
        const auto line = without_carriage_return(take_line(rest));
        const auto first = std::min(line.find_first_not_of(" \t"), line.size());
        if (first < line.size() && !line.starts_with("Warning"))
            (said += ' ') += line.substr(first, longest - said.size());
    }
    return said;
}

// True when the program has done its work; otherwise `problem` says what was wrong, "" after ESCAPE.
bool run_tool(const std::vector<std::string>& command, const PrivateDirectory& directory,
              std::string& problem)
{
    const std::string messages = "messages";
    const auto result =
        run_program(command, {.error = messages, .directory = directory.path(), .go_on = go_on});
    if (result.succeeded()) return true;
    if (result.ending == RunResult::cancelled) return false;
    problem = run_problem(command.front(), result) + ".";
    if (result.ending == RunResult::not_started)
        problem += " BLAST is looked for in the directory that KQ_BLAST_BIN names, else in " +
                   std::string(blast_directory) +
                   ", else on PATH. The Debian package ncbi-blast+-legacy has it.";
    else
        problem += complaint(directory.path_of(messages));
    return false;
}

// ---- the search -------------------------------------------------------------------------------------------

// Empty on success, else what was wrong.
std::string write_input(int query, const BlastSearch& search, const PrivateDirectory& directory)
{
    constexpr std::size_t header_room = 16;
    std::string text;
    if (clustalw_seq(query, 0, text) == 0)
        return destroy[static_cast<std::size_t>(query)] ? "The sequence is deleted"
                                                        : "The sequence has no residues to search for";
    std::string problem = directory.write(search.query, text);
    if (!problem.empty()) return problem;
    text.clear();
    text.reserve(static_cast<std::size_t>(nb_spec) * (static_cast<std::size_t>(nb_nuc_tot) + header_room));
    for (int species = 0; species < nb_spec; species++)
        clustalw_seq(species, 0, text);
    return directory.write(search.database, text);
}

// Nothing when there is no result; `problem` says why, "" after ESCAPE. The programs work in a directory of
// their own: what they leave behind has names that only they know, and no file of the user's can be in their
// way.
std::optional<BlastTable> search_in_alignment(int query, std::string& problem)
{
    const PrivateDirectory directory;
    const BlastSearch search = blast_search(file_ALI, type_seq != 0);
    problem = directory.error();
    if (problem.empty()) problem = write_input(query, search, directory);
    if (!problem.empty()) return std::nullopt;
    const auto bin = program_directory();
    if (!run_tool(formatdb_command(bin, search), directory, problem) ||
        !run_tool(blastall_command(bin, search), directory, problem))
        return std::nullopt;
    std::string text;
    problem = read_whole_file(directory.path_of(search.output), text);
    if (!problem.empty()) return std::nullopt;
    const auto table = read_blast_table(text, nb_spec);
    if (table.unread_line > 0)
        problem = text_format("BLAST's table of hits cannot be read from line %d on", table.unread_line);
    return table;
}

void keep(const std::vector<BlastHit>& hits)
{
    for (int species = 0; species < nb_spec; species++)
        evalue[static_cast<std::size_t>(species)][1] = -1.0;
    for (const auto& hit : hits)
        evalue[static_cast<std::size_t>(hit.species)][1] = hit.evalue;
    tophits = std::min(static_cast<int>(hits.size()), max_blast_hits);
    std::copy_n(hits.begin(), tophits, blasttable.begin());
}

// ---- the table --------------------------------------------------------------------------------------------

constexpr SpeciesLineColumns table_columns{.figures = 3, .species = 38, .taxon = 90};

// Adds a text that begins at a column of the box.
void add_at(std::string& figures, int column, std::string_view text)
{
    const auto begin = static_cast<std::size_t>(column - table_columns.figures);
    figures.resize(std::max(begin, figures.size()), ' ');
    figures += text;
}

TableLine hit_line(const BlastHit& hit)
{
    std::string figures = text_format("%-6g", hit.evalue);
    add_at(figures, 13, text_format("%4.0f", hit.score));
    add_at(figures, 22, text_format("%3.0f", hit.identity));
    add_at(figures, 30, text_format("%4d", hit.length));
    return species_line(hit.species, figures, table_columns);
}

TableLine headings_line()
{
    TableLine line;
    put_text(line, table_columns.figures, color::light_grey, "Evalue");
    put_text(line, 12, color::light_grey, "Bscore");
    put_text(line, 21, color::light_grey, "Ident");
    put_text(line, 29, color::light_grey, "Length");
    put_species_headings(line, table_columns);
    return line;
}

} // namespace

bool do_blast(int query)
{
    pos_deb = 0; // what clustalw_seq sends
    pos_fin = nb_nuc_tot - 1;
    std::string problem;
    const auto table = search_in_alignment(query, problem);
    draw_rows_again(); // in the place of the waiting box; what comes next may be smaller
    if (!problem.empty()) warn(problem);
    if (table) keep(table->hits);
    return table.has_value();
}

void show_blast_top_hits()
{
    ResultTable table{.first_line = 1,
                      .first_column = 1,
                      .last_column = _nb_col,
                      .frame_color = color::light_grey,
                      .headings = {headings_line(), {}},
                      .lines = {}};
    for (int hit = 0; hit < tophits; hit++)
        table.lines.push_back(hit_line(blasttable[static_cast<std::size_t>(hit)]));
    TableLine legend;
    put_text(legend, table_columns.figures, color::light_cyan, "Press any key to continue . . .");
    table.legend = {{}, legend};
    ResultTableView(table).wait();
    _clearscreen(1);
}

void gere_blast()
{
    const int query = require_species();
    if (query == -1) return;
    affich_avert_no_key("Waiting for BLAST to finish...", dialog_line, "ESCAPE:Cancel");
    if (!do_blast(query)) return;
    show_blast_top_hits();
    opt_evalue = 2;
}

} // namespace kq
