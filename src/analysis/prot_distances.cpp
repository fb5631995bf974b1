// screen: the distances between the analysed proteins, over the kept positions.
#include "analysis/prot_distances.h"

#include "analysis/analysed.h"
#include "analysis/distance_matrix.h"
#include "analysis/gamma_series.h"
#include "analysis/pair_blocks.h"
#include "analysis/parameters.h"
#include "analysis/progress.h"
#include "analysis/prot_counts.h"
#include "analysis/prot_formulas.h"
#include "analysis/weight_matrix.h"
#include "core/residues.h"
#include "screen/dialogs.h"
#include "screen/directories.h"

#include <omp.h>

#include <array>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

namespace kq {

constinit ProtWeights mprot{};
constinit float dist2 = 0;

namespace {

// Side of the blocks: the planes of so many species stay in the nearest cache.
constexpr int side = 32;

bool read_weights()
{
    const auto matrix = read_weight_matrix(shipped_file(weight_matrix_name(type_dist)));
    if (!matrix.error.empty()) {
        affich_avert(matrix.error, 5);
        return false;
    }
    mprot = matrix.weights;
    return true;
}

// False when the report asked to stop.
bool take_sequences(ComparedProteins& proteins, const Report& report)
{
    const auto positions = kept_positions();
    std::string text;
    PacedReport paced(report);
    for (int i = 0; i < nb_spec_auto; i++) {
        if (!paced(0)) return false;
        kept_characters(cor_auto[static_cast<std::size_t>(i)], positions, text);
        proteins.set(i, text);
    }
    return true;
}

// A part of the block is left out when the computation is to stop.
void compute_block(const ComparedProteins& proteins, const PairBlock& block, Pace& pace, GammaSeries& series)
{
    static const Instructions instructions = usable_instructions().back();
    std::array<ProtCounts, side> counts;
    for (int i = block.first_i; i < block.end_i && pace.go_on(); i++) {
        const int first = block.first_j, end = block.end_of_row(i);
        if (first >= end) continue;
        proteins.count(i, first, std::span(counts).first(static_cast<std::size_t>(end - first)),
                       instructions);
        float* const row = dist + cell(i, first, nb_spec_auto);
        for (int j = first; j < end; j++)
            row[j - first] =
                prot_distance(type_dist, counts[static_cast<std::size_t>(j - first)], alpha, series);
    }
}

// The code of a character; -1 = unknown.
int code_at(std::string_view text, int position)
{
    const auto p = static_cast<std::size_t>(position);
    if (p >= text.size() || car_inconnu.find(text[p]) != car_inconnu.npos) return code_none;
    const int code = code_prot(text[p]);
    return code == code_unknown_prot ? code_none : code;
}

ProtCounts plain_counts(std::string_view a, std::string_view b)
{
    ProtCounts counts{.comparable = nb_nuc_keep, .gaps = 0, .weights = 0};
    for (const int p : kept_positions()) {
        const int x = code_at(a, p), y = code_at(b, p);
        if (x == code_none || y == code_none || (x == code_gap && y == code_gap))
            counts.comparable--;
        else if (x == code_gap || y == code_gap)
            counts.gaps++;
        else if (x != y)
            counts.weights =
                static_cast<float>(double{counts.weights} +
                                   mprot[static_cast<std::size_t>(x - 1)][static_cast<std::size_t>(y - 1)]);
    }
    return counts;
}

} // namespace

bool compute_dist_prot()
{
    if (!read_weights()) return false;
    DistanceProgress progress(number_of_pairs(nb_spec_auto));
    const auto report = progress.report();
    ComparedProteins proteins(nb_spec_auto, nb_nuc_keep, mprot, car_inconnu);
    if (!take_sequences(proteins, report)) return false;
    std::vector<GammaSeries> series(static_cast<std::size_t>(omp_get_max_threads()), GammaSeries(alpha));
    const auto body = [&](const PairBlock& block, Pace& pace) {
        compute_block(proteins, block, pace, series[static_cast<std::size_t>(omp_get_thread_num())]);
        return block.pairs();
    };
    return for_pair_blocks(nb_spec_auto, side, body, report);
}

void compute_dist_prot_int(const char* a, const char* b)
{
    const auto text = [](const char* row) {
        return std::string_view(row, strnlen(row, static_cast<std::size_t>(nb_nuc_tot)));
    };
    GammaSeries series(alpha);
    dist2 = prot_distance(type_dist, plain_counts(text(a), text(b)), alpha, series);
}

} // namespace kq
