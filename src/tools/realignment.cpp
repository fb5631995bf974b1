// screen: realigning a region of the alignment with ClustalW.
#include "tools/realignment.h"

#include "core/edit.h"
#include "core/store.h"
#include "editor/editing.h"
#include "editor/navigation.h"
#include "editor/prompts.h"
#include "editor/region.h"
#include "editor/view.h"
#include "raster/grx.h"
#include "screen/cleanup.h"
#include "screen/dialogs.h"
#include "screen/fields.h"
#include "screen/files.h"
#include "screen/private_directory.h"
#include "screen/process.h"
#include "screen/prompt_field.h"
#include "screen/strings.h"
#include "screen/text.h"
#include "taxonomy/text_file.h"
#include "tools/clustalw_files.h"
#include "tools/compaction.h"
#include "tools/fasta_text.h"
#include "tools/gap_pattern.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <optional>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

namespace kq {

namespace {

constexpr std::string_view sets[] = {
    "Realign the selected region for only one ensemble",
    "Realign the selected region for all ensembles",
    "Realign the selected region for all species",
};
constexpr int sets_width = 50;

// ---- what is sent

std::string_view text_in_region(int species)
{
    const std::span<const char> text = row(species);
    const std::string_view whole(text.data(), text.size());
    const auto first = static_cast<std::size_t>(pos_deb), end = static_cast<std::size_t>(pos_fin) + 1;
    return whole.substr(std::min(first, whole.size()), end - first);
}

// The species sent, in order, and the text of the file.
class Sent {
public:
    // Those of `species` that have enough residues, each once.
    Sent(std::span<const int> species, int minimum);

    const std::vector<int>& species() const { return species_; }
    const std::string& fasta() const { return fasta_; }
    // The place of one among the species; -1 when it was not sent.
    int place_of(int one) const { return one < nb_spec ? places_[static_cast<std::size_t>(one)] : -1; }
    std::string_view residues(int one) const // of one that was sent
    {
        const auto [first, count] = records_[static_cast<std::size_t>(place_of(one))];
        return std::string_view(fasta_).substr(first, count);
    }

private:
    struct Record {
        std::size_t first, count; // where its residues stand in the text
    };
    std::vector<int> species_, places_;
    std::vector<Record> records_;
    std::string fasta_;
};

Sent::Sent(std::span<const int> species, int minimum)
    : places_(static_cast<std::size_t>(nb_spec), -1)
{
    constexpr std::size_t header_width = 16;
    const auto width = static_cast<std::size_t>(pos_fin - pos_deb + 1);
    fasta_.reserve(std::min(species.size(), places_.size()) * (width + header_width));
    for (const int one : species) {
        int& place = places_[static_cast<std::size_t>(one)];
        if (place >= 0) continue;
        const auto count = static_cast<std::size_t>(clustalw_seq(one, minimum, fasta_));
        if (count == 0) continue;
        place = static_cast<int>(species_.size());
        species_.push_back(one);
        records_.push_back({fasta_.size() - 1 - count, count});
    }
}

// ---- ClustalW

// The files of one realignment; they go away with this object. They stand in the current directory under
// names made from the alignment's; in a private one when those would harm another program or another file.
class WorkFiles {
public:
    WorkFiles();
    const std::string& error() const { return error_; }
    // Where ClustalW is to run; "" = the current directory.
    std::string directory() const { return private_ ? private_->path() : ""; }
    std::string name(const char* extension) const { return base_ + extension; } // seen from there
    std::string path(const char* extension) const
    {
        return private_ ? private_->path_of(name(extension)) : name(extension);
    }

private:
    bool may_use_names() const;
    static constexpr const char* extensions[] = {".fasta", ".nxs", ".dnd"};

    std::string base_, error_;
    std::optional<PrivateDirectory> private_;
    std::optional<Cleanup> removal_;
};

WorkFiles::WorkFiles()
    : base_(text_format("%s.%d-%d", file_ALI.c_str(), pos_deb + 1, pos_fin + 1))
{
    if (may_use_names()) {
        removal_.emplace([this] {
            for (const char* const extension : extensions)
                std::remove(path(extension).c_str());
        });
        return;
    }
    base_ = "region";
    private_.emplace();
    error_ = private_->error();
}

bool WorkFiles::may_use_names() const
{
    return is_plain_name(base_) && cannot_write("./", 0).empty() &&
           std::ranges::none_of(extensions,
                                [this](const char* extension) { return exists(path(extension)); });
}

// What speaks against a result; it may hold each species that was sent once, with its residues, and nothing
// else.
ResultProblem problem_of(const NexusAlignment& aligned, const Sent& sent)
{
    for (std::size_t i = 0; i < aligned.species.size(); i++) {
        const int species = aligned.species[i];
        if (sent.place_of(species) < 0) return {"was not sent", species};
        if (!has_residues(aligned.row(i), sent.residues(species)))
            return {"has other residues than were sent", species};
    }
    if (aligned.species.size() == sent.species().size()) return {};
    const auto is_missing = [&](int species) {
        return std::ranges::find(aligned.species, species) == aligned.species.end();
    };
    return {"is missing", *std::ranges::find_if(sent.species(), is_missing)};
}

std::string sentence_about(const ResultProblem& problem)
{
    std::string sentence = "The result of ClustalW cannot be used: ";
    if (problem.species >= nb_spec)
        sentence += text_format("species %d ", problem.species);
    else if (problem.species >= 0)
        (sentence += identifier(problem.species)) += ' ';
    return sentence + problem.what;
}

std::string read_result(const std::string& path, const Sent& sent, NexusAlignment& aligned)
{
    // Twice what the largest alignment has: room for the names of the rows.
    constexpr std::uintmax_t largest = 2 * seq_capacity;
    std::error_code unknown; // a file that is not there has its message from the reading
    const auto size = std::filesystem::file_size(path, unknown);
    if (!unknown && size > largest) return sentence_about({"it is too long"});
    std::string text;
    if (auto error = read_whole_file(path, text); !error.empty()) return error;
    ResultProblem problem = read_nexus(text, aligned);
    if (problem.what.empty()) problem = problem_of(aligned, sent);
    return problem.what.empty() ? "" : sentence_about(problem);
}

enum class Outcome { aligned, cancelled, failed };

// Has the species aligned; `problem` says what failed. No file is left.
Outcome align(const Sent& sent, NexusAlignment& aligned, std::string& problem)
{
    const WorkFiles files;
    problem = files.error();
    if (problem.empty()) problem = write_scratch_file(files.path(".fasta"), sent.fasta());
    if (!problem.empty()) return Outcome::failed;

    const std::string program = chosen_program("KQ_CLUSTALW", "clustalw");
    const auto go_on = [] { return !GrEscapePressed(); };
    const RunResult run =
        run_program(clustalw_arguments(program, files.name(".fasta")),
                    {.output = "", .error = "", .directory = files.directory(), .go_on = go_on});
    if (run.ending == RunResult::cancelled) return Outcome::cancelled;
    problem = run_problem(program, run);
    if (run.ending == RunResult::not_started)
        problem += ": install it, or name it in the environment variable KQ_CLUSTALW";
    else if (!problem.empty())
        problem += ": see terminal window";
    else
        problem = read_result(files.path(".nxs"), sent, aligned);
    return problem.empty() ? Outcome::aligned : Outcome::failed;
}

// ---- the result

// Warns, and nothing is changed, when the alignment cannot become so long.
void write_into_region(std::span<const int> species, const Sent& sent, const NexusAlignment& aligned)
{
    const int width = pos_fin - pos_deb + 1, length = static_cast<int>(aligned.length);
    if (length > width && !grown(open_columns(Rows::none(), pos_fin + 1, length - width))) return;

    std::vector<int> row_of(static_cast<std::size_t>(nb_spec), -1); // in the result
    for (std::size_t i = 0; i < aligned.species.size(); i++)
        row_of[static_cast<std::size_t>(aligned.species[i])] = static_cast<int>(i);
    rewrite_columns(species, pos_deb, pos_deb + std::max(width, length),
                    [&](int one, std::span<char> region) {
                        const int place = row_of[static_cast<std::size_t>(one)];
                        if (place < 0)
                            compact(region.first(static_cast<std::size_t>(width)), Direction::left);
                        else
                            lay_out(region, aligned.row(static_cast<std::size_t>(place)), sent.residues(one));
                    });
    mark_changed();
}

} // namespace

int clustalw_seq(int species, int minimum, std::string& file)
{
    if (destroy[static_cast<std::size_t>(species)]) return 0;
    const std::size_t before = file.size();
    append_fasta(file, species, text_in_region(species), std::max(minimum, 1));
    if (file.size() == before) return 0;
    const std::size_t header_end = file.find('\n', before);
    return static_cast<int>(file.size() - 1 - (header_end + 1));
}

void do_clustalw(SpeciesSet set, int ensemble, int minimum)
{
    const std::vector<int> species = species_of(set, ensemble);
    const Sent sent(species, minimum);
    NexusAlignment aligned;
    std::string problem = "Fewer than two of the species have enough residues in the region";
    const auto outcome = sent.species().size() < 2 ? Outcome::failed : align(sent, aligned, problem);
    draw_rows_again(); // in the place of the waiting box
    if (outcome == Outcome::aligned) write_into_region(species, sent, aligned);
    if (outcome == Outcome::failed) warn(problem);
}

// ---- the command

namespace {

// Nothing on ESCAPE.
std::optional<int> ask_minimum()
{
    const std::string prompt =
        text_format("Minimum length for a sequence to be realigned (0-%d) =", nb_nuc_tot);
    const int width = static_cast<int>(prompt.size()) + 10, left = (_nb_col - width) / 2;
    window_hp(dialog_line, left, dialog_line + 2, left + width, color::cyan);
    const int field = outtext_prompt(2, prompt, static_cast<int>(prompt.size()) + 4, number_room);
    int minimum = std::min(5, nb_nuc_tot);
    const bool entered = enter_int(minimum, 0, nb_nuc_tot, 2, field);
    _clearscreen(1);
    if (!entered) return std::nullopt;
    return minimum;
}

} // namespace

void gere_clustalw()
{
    if (select_region() == escaped) return;
    const auto minimum = ask_minimum();
    if (!minimum) return;
    draw_rows_again();
    const auto chosen = choose_species_set(sets, sets_width, "Choose the ensemble you want to realign:");
    if (!chosen) return;
    draw_rows_again();
    affich_avert_no_key("Waiting for ClustalW to finish... See terminal window for progress status.",
                        dialog_line, "ESCAPE:Cancel");
    do_clustalw(chosen->set, chosen->ensemble, *minimum);
    reactualise(-1);
}

} // namespace kq
