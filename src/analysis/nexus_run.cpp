// screen: the NEXUS file of the ensembles, and PAUP, which reads it.
#include "analysis/nexus_run.h"

#include "analysis/analysed.h"
#include "analysis/analysis_start.h"
#include "analysis/output_file.h"
#include "analysis/output_names.h"
#include "analysis/outputs.h"
#include "analysis/parameters.h"
#include "analysis/planned_outputs.h"
#include "screen/dialogs.h"
#include "screen/files.h"
#include "screen/process.h"

#include <cstdint>

namespace kq {

namespace {

constexpr int warning_line = 5;

// What is known before anything is written.
std::string nexus_problem()
{
    const std::string header = header_file_name(file_ALI, 's', nb_sequence);
    const auto species = static_cast<std::uint64_t>(nb_spec_auto);
    const auto positions = static_cast<std::uint64_t>(nb_nuc_keep);
    const PlannedOutput planned[] = {
        {header, 0}, {with_extension(header, ".nex"), species * (positions + identifier_size)}};
    return outputs_problem(planned);
}

bool write_both_files()
{
    if (!write_file_NB('s')) return false;
    nomfic = with_extension(nomfic, ".nex");
    return write_nexus_file();
}

// Starts PAUP on the file; what the user is to know.
std::string run_paup(const std::string& nexus_file)
{
    const std::string paup = chosen_program("KQ_PAUP", "paup");
    if (!program_found(paup))
        return "The file " + nexus_file + " has been written. The program " + paup +
               " is not there; KQ_PAUP may name another one";
    if (!start_in_background(paup_command(paup, nexus_file)))
        return "The file " + nexus_file + " has been written, but " + paup + " could not be started";
    return "The file for PAUP4 has been written and is currently analysed";
}

} // namespace

void write_nexus()
{
    if (too_many_to_analyse()) return;
    percent_gap = 100;
    AnalysisScope scope;
    if (!scope.choose_positions()) return;
    if (const std::string problem = nexus_problem(); !problem.empty())
        return affich_avert(problem, warning_line);
    type_parci = 0;
    begin_outputs();
    const bool complete = write_both_files();
    if (complete) affich_avert(run_paup(nomfic), warning_line);
    end_outputs(complete ? Outputs::complete : Outputs::stopped);
}

std::vector<std::string> paup_command(const std::string& paup, const std::string& nexus_file)
{
    // No program shall take the name for an option.
    const std::string file = (nexus_file.starts_with('-') ? "./" : "") + nexus_file;
    const std::string stem = file.substr(0, file.rfind('.'));
    // The shell runs one after the other. It is silent where nobody has a nimbrask.
    return {"/bin/sh",    "-c", R"("$1" -n "$2"; if command -v nimbrask >/dev/null; then nimbrask "$3"; fi)",
            "sh",         paup, stem + ".nex",
            stem + ".tre"};
}

} // namespace kq
