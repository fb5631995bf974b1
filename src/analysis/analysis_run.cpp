// screen: the automatic analysis of the ensembles.
#include "analysis/analysis_run.h"

#include "analysis/analysed.h"
#include "analysis/analysis_start.h"
#include "analysis/arn_distances.h"
#include "analysis/distance_matrix.h"
#include "analysis/nj_tree.h"
#include "analysis/output_file.h"
#include "analysis/output_names.h"
#include "analysis/outputs.h"
#include "analysis/parameter_box.h"
#include "analysis/parameters.h"
#include "analysis/phylip_names.h"
#include "analysis/planned_outputs.h"
#include "analysis/prot_distances.h"
#include "core/store.h"
#include "screen/dialogs.h"
#include "screen/files.h"
#include "screen/system_memory.h"
#include "screen/text.h"

#include <algorithm>
#include <cstdint>
#include <new>
#include <string_view>

namespace kq {

namespace {

constexpr int warning_line = 5, memory_line = 10;

// ---- the steps of a run -----------------------------------------------------------------------------------

// A distance: the values of type_dist for nucleic acids and for proteins.
struct Distance {
    int arn, prot;
    int type() const { return type_seq == 0 ? arn : prot; }
};
constexpr Distance all_differences{0, 0}, kimura{8, 1}, with_alpha{12, 7};

// The counts that all distances of nucleic acids are made of.
bool count_differences()
{
    return type_seq != 0 || compute_diff_arn();
}

bool compute_distances()
{
    return type_seq == 0 ? compute_dist_arn() : compute_dist_prot();
}

template <Distance distance>
bool matrix_and_tree()
{
    type_dist = distance.type();
    return compute_distances() && write_file_NB('m') && out_matrix_nj();
}

// Every file of sequences has a header file of its own, and its name with another extension.
bool begin_sequences(std::string_view extension)
{
    if (!write_file_NB('s')) return false;
    nomfic = with_extension(nomfic, extension);
    return true;
}

bool paup_file()
{
    type_parci = 0;
    return begin_sequences(".mac") && write_paup_3_0();
}

bool phylip_names()
{
    creer_ident_phylip();
    return true;
}

bool pml_file()
{
    return begin_sequences(".pml") && write_phylip(phylip_with_identifier);
}

bool puz_file()
{
    return begin_sequences(".puz") && write_phylip(phylip_joined);
}

template <Distance distance>
bool bootstrap_file()
{
    type_dist = distance.type();
    return begin_sequences(".njb") && write_njb();
}

struct Step {
    int level;     // the least level of complexity that it belongs to
    bool (*run)(); // false: stopped by ESCAPE, or failed, which has been said
};

// clang-format off
constexpr Step steps[] = {
    {1, count_differences},
    {1, matrix_and_tree<all_differences>},
    {2, matrix_and_tree<kimura>},
    {2, paup_file},
    {3, phylip_names},
    {3, matrix_and_tree<with_alpha>},
    {3, pml_file},
    {3, puz_file},
    {3, bootstrap_file<all_differences>},
    {3, bootstrap_file<kimura>},
    {3, bootstrap_file<with_alpha>},
};
// clang-format on

bool run_steps()
{
    return std::ranges::all_of(steps, [](const Step& step) { return step.level > type_auto || step.run(); });
}

void warn_of_missing_tree()
{
    const ScreenCopy covered;
    affich_avert("A tree needs at least three species", warning_line);
    covered.put_back();
}

// ---- what is known before it starts -----------------------------------------------------------------------

// What the run will need at most: the matrices, the kept characters coded, and what does not depend on the
// alignment (the blocks of a file that is written, threads, values remembered).
std::uint64_t bytes_of_run()
{
    constexpr std::uint64_t fixed = 64 << 20;
    // Bits of the planes: 4 and one for the uncoded; 42 where the weights of proteins have full rank.
    const std::uint64_t bytes_of_character = type_seq == 0 ? 1 : 6;
    const auto species = static_cast<std::uint64_t>(nb_spec_auto);
    return fixed + bytes_of_matrices(nb_spec_auto, type_seq) +
           bytes_of_character * species * static_cast<std::uint64_t>(nb_nuc_keep);
}

bool memory_suffices()
{
    return bytes_of_run() <= available_memory() && alloue_memoire_dist() == 0;
}

void warn_of_memory()
{
    affich_avert("Insufficient available memory to compute distance matrix", memory_line);
}

} // namespace

void tout_auto()
{
    if (too_many_to_analyse() || saisir_param_auto() == escaped) return;
    AnalysisScope scope;
    if (!scope.choose_positions()) return;
    name_distances(type_seq);
    nb_matrice = nb_sequence = 0;
    if (!memory_suffices()) return warn_of_memory();
    if (const auto problem = outputs_problem(planned_outputs(type_auto)); !problem.empty())
        return affich_avert(problem, warning_line);
    if (nb_spec_auto < species_of_least_tree) warn_of_missing_tree();
    auto outputs = Outputs::stopped;
    begin_outputs();
    try {
        if (run_steps()) outputs = Outputs::complete;
    } catch (const std::bad_alloc&) { // another program has taken it in the meantime
        warn_of_memory();
    }
    end_outputs(outputs);
}

} // namespace kq
