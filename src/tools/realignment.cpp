// screen: realigning a region of the alignment with ClustalW.
#include "tools/realignment.h"

#include "analysis/progress.h"
#include "core/store.h"
#include "editor/editing.h"
#include "editor/navigation.h"
#include "editor/prompts.h"
#include "editor/region.h"
#include "editor/view.h"
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
#include "tools/sent_region.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <optional>
#include <span>
#include <string_view>
#include <system_error>
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
           std::ranges::none_of(extensions, [this](const char* extension) {
               std::error_code ignored; // a link that leads nowhere is the user's, too
               return std::filesystem::exists(std::filesystem::symlink_status(path(extension), ignored));
           });
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

std::string read_result(const std::string& path, const SentRegion& sent, NexusAlignment& aligned)
{
    std::string text;
    if (std::string failed = read_whole_file(path, text); !failed.empty()) return failed;
    ResultProblem problem = read_nexus(text, aligned);
    if (problem.what.empty()) problem = problem_of(aligned, sent);
    return problem.what.empty() ? "" : sentence_about(problem);
}

enum class Outcome { aligned, cancelled, failed };

// Has the species aligned; `problem` says what failed. No file is left.
Outcome align(const SentRegion& sent, NexusAlignment& aligned, std::string& problem)
{
    const WorkFiles files;
    problem = files.error();
    if (problem.empty()) problem = write_scratch_file(files.path(".fasta"), sent.fasta());
    if (!problem.empty()) return Outcome::failed;

    const std::string program = chosen_program("KQ_CLUSTALW", "clustalw");
    const RunResult run =
        run_program(clustalw_arguments(program, files.name(".fasta")),
                    {.output = "", .error = "", .directory = files.directory(), .go_on = go_on});
    if (run.ending == RunResult::cancelled) return Outcome::cancelled;
    problem = run_problem(program, run);
    if (run.ending == RunResult::not_started)
        problem += ": KQ_CLUSTALW may name another one; the Debian package clustalw has it";
    else if (!problem.empty())
        problem += ": see terminal window";
    else
        problem = read_result(files.path(".nxs"), sent, aligned);
    return problem.empty() ? Outcome::aligned : Outcome::failed;
}

} // namespace

void do_clustalw(SpeciesSet set, int ensemble, int minimum)
{
    const std::vector<int> species = species_of(set, ensemble);
    const SentRegion sent(species, minimum);
    NexusAlignment aligned;
    std::string problem = "Fewer than two of the species have enough residues in the region";
    const auto outcome = sent.species().size() < 2 ? Outcome::failed : align(sent, aligned, problem);
    draw_rows_again(); // in the place of the waiting box
    if (outcome == Outcome::aligned) grown(write_into_region(species, sent, aligned));
    if (outcome == Outcome::failed) warn(problem + ". Nothing is changed.");
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
    draw_editor_again();
    const auto chosen = choose_species_set(sets, sets_width, "Choose the ensemble you want to realign:");
    if (!chosen) return;
    draw_rows_again();
    affich_avert_no_key("Waiting for ClustalW to finish... See terminal window for progress status.",
                        dialog_line, "ESCAPE:Cancel");
    do_clustalw(chosen->set, chosen->ensemble, *minimum);
    reactualise(-1);
}

} // namespace kq
