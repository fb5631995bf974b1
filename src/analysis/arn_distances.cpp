// screen: the distances between the analysed nucleic acids, over the kept positions.
//
// Contents: the sequences as bit planes, the counts of all pairs, distances from these counts, Tamura and
// Nei.
#include "analysis/arn_distances.h"

#include "analysis/analysed.h"
#include "analysis/arn_formulas.h"
#include "analysis/base_planes.h"
#include "analysis/count_blocks.h"
#include "analysis/distance_matrix.h"
#include "analysis/gamma_series.h"
#include "analysis/pair_blocks.h"
#include "analysis/pair_counts.h"
#include "analysis/parameters.h"
#include "analysis/progress.h"

#include <omp.h>

#include <array>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace kq {

namespace {

// ---- the sequences ----------------------------------------------------------------------------------------

// Nothing when the report asked to stop.
std::optional<BasePlanes> planes_of(std::span<const int> species, const Report& report)
{
    BasePlanes planes(static_cast<int>(species.size()), nb_nuc_keep);
    const auto positions = kept_positions();
    std::string text;
    PacedReport paced(report);
    for (std::size_t i = 0; i < species.size(); i++) {
        if (!paced(0)) return {};
        kept_characters(species[i], positions, text);
        planes.set(static_cast<int>(i), text, car_inconnu);
    }
    return planes;
}

// Calls work(i, counts of i against first_j ...) for each row of the block. False when the computation is to
// stop.
template <class Counts, class Work>
bool count_rows(const BasePlanes& planes, const PairBlock& block, Pace& pace, Work work)
{
    static const Instructions instructions = usable_instructions().back();
    std::array<Counts, side_of_counts> buffer;
    for (int i = block.first_i; i < block.end_i; i++) {
        if (!pace.go_on()) return false;
        const auto counts = std::span(buffer).first(lower_row(block, i).length);
        count_pairs(planes, i, block.first_j, counts, instructions);
        work(i, std::span<const Counts>(counts));
    }
    return true;
}

// ---- from the counts --------------------------------------------------------------------------------------

// Pairs with nothing to compare do not count as done.
std::int64_t comparable_pairs(const PairBlock& block)
{
    std::int64_t sum = 0;
    for (int j = block.first_j; j < block.end_j; j++) {
        const auto run = upper_row(block, j);
        for (std::size_t k = 0; k < run.length; k++)
            sum += dist[run.cells + k] != 0;
    }
    return sum;
}

// Stores distance(counts of the pair) for all pairs.
template <class Distance>
bool fill_from_counts(int side, Distance distance, const Report& report)
{
    const auto body = [&](const PairBlock& block, Pace& pace) -> std::int64_t {
        BlockCounts counts;
        read_counts(block, counts);
        for (int i = block.first_i; i < block.end_i; i++) {
            if (!pace.go_on()) return 0;
            const auto run = lower_row(block, i);
            for (std::size_t k = 0; k < run.length; k++)
                dist[run.cells + k] = distance(counts.get(run.row, k));
        }
        return comparable_pairs(block);
    };
    return for_pair_blocks(nb_spec_auto, side, body, report);
}

bool fill_closed_forms(const Report& report)
{
    return fill_from_counts(
        side_of_counts, [](const PairCounts& counts) { return arn_distance(type_dist, counts, alpha); },
        report);
}

// ---- the series -------------------------------------------------------------------------------------------

// Some pairs take most of a millisecond, so a row is short.
constexpr int side_of_series = 8;

float rzhetsky_nei(GammaSeries& series, int type, const PairCounts& counts)
{
    const auto& [comparable, transitions, transversions, deletions, others] = counts;
    if (comparable == 0) return 0;
    const int positions = comparable - deletions;
    return type == 9 ? series.jukes_cantor(transitions + transversions + deletions + others, positions)
                     : series.kimura(transitions, transversions, positions);
}

bool fill_series(const Report& report)
{
    std::vector<GammaSeries> of_thread(static_cast<std::size_t>(omp_get_max_threads()), GammaSeries(alpha));
    return fill_from_counts(
        side_of_series,
        [&](const PairCounts& counts) {
            return rzhetsky_nei(of_thread[static_cast<std::size_t>(omp_get_thread_num())], type_dist, counts);
        },
        report);
}

PairCounts counts_of(int i, int j)
{
    const auto lower = cell(i, j, nb_spec_auto), upper = cell(j, i, nb_spec_auto);
    return {.comparable = static_cast<std::int32_t>(dist[upper]),
            .transitions = d1[lower],
            .transversions = d1[upper],
            .deletions = d2[lower],
            .others = d2[upper]};
}

void compute_RN94(int type, int i, int j)
{
    GammaSeries series(alpha);
    dist[cell(i, j, nb_spec_auto)] = rzhetsky_nei(series, type, counts_of(i, j));
}

// ---- Tamura and Nei ---------------------------------------------------------------------------------------

bool fill_tamura_nei(const Report& report)
{
    const auto planes = planes_of(analysed_species(), report);
    if (!planes) return false;
    const auto body = [&](const PairBlock& block, Pace& pace) -> std::int64_t {
        const auto work = [&](int i, std::span<const CompositionCounts> counts) {
            float* const distances = dist + lower_row(block, i).cells;
            for (std::size_t k = 0; k < counts.size(); k++)
                distances[k] = tamura_nei(counts[k], alpha);
        };
        return count_rows<CompositionCounts>(*planes, block, pace, work) ? comparable_pairs(block) : 0;
    };
    return for_pair_blocks(nb_spec_auto, side_of_counts, body, report);
}

} // namespace

// ---- the interface ----------------------------------------------------------------------------------------

bool compute_diff_arn()
{
    DistanceProgress progress(number_of_pairs(nb_spec_auto));
    const auto planes = planes_of(analysed_species(), progress.report());
    if (!planes) return false;
    const auto body = [&](const PairBlock& block, Pace& pace) -> std::int64_t {
        BlockCounts counts;
        const auto work = [&](int i, std::span<const PairCounts> row) {
            prefetch_cells(block, i - block.first_i);
            for (std::size_t k = 0; k < row.size(); k++)
                counts.put(static_cast<std::size_t>(i - block.first_i), k, row[k]);
        };
        if (!count_rows<PairCounts>(*planes, block, pace, work)) return 0;
        write_counts(block, counts);
        return block.pairs();
    };
    return for_pair_blocks(nb_spec_auto, side_of_counts, body, progress.report());
}

bool compute_dist_arn()
{
    if (type_dist <= 8) return fill_closed_forms([](std::int64_t) { return go_on(); });
    DistanceProgress progress(number_of_pairs(nb_spec_auto));
    const auto report = progress.report();
    switch (type_dist) {
    case 11:
        return fill_closed_forms(report);
    case 12:
        return fill_tamura_nei(report);
    default:
        return fill_series(report);
    }
}

void compute_RN94_JC(int i, int j)
{
    compute_RN94(9, i, j);
}

void compute_RN94_Kimura(int i, int j)
{
    compute_RN94(10, i, j);
}

void compute_tamura_nei(int i, int j)
{
    const int species[] = {cor_auto[static_cast<std::size_t>(i)], cor_auto[static_cast<std::size_t>(j)]};
    const auto planes = planes_of(species, [](std::int64_t) { return true; });
    CompositionCounts counts;
    count_pairs(*planes, 0, 1, std::span(&counts, 1), Instructions::baseline);
    dist[cell(i, j, nb_spec_auto)] = tamura_nei(counts, alpha);
}

} // namespace kq
