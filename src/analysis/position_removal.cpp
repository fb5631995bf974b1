// model: which species and positions an analysis of the ensembles works with.
#include "analysis/position_removal.h"

#include "analysis/analysed.h"
#include "analysis/gap_count.h"
#include "analysis/parameters.h"
#include "core/columns.h"
#include "core/ensemble_columns.h"
#include "core/options.h"

#include <algorithm>
#include <cassert>

namespace kq {

namespace {

void list_analysed_species()
{
    assert(members_of_ensembles() <= max_species);
    auto next = cor_auto.begin();
    for (int ensemble = 0; ensemble < nb_ens; ensemble++)
        next = std::ranges::copy(members(ensemble), next).out;
    nb_spec_auto = static_cast<int>(next - cor_auto.begin());
}

std::vector<std::uint32_t> gaps_of_analysed_species()
{
    std::vector<std::string_view> rows;
    for (const int species : analysed_species())
        rows.emplace_back(row(species).data(), row(species).size());
    return count_gaps(rows, static_cast<std::size_t>(nb_nuc_tot));
}

} // namespace

int members_of_ensembles()
{
    int count = 0;
    for (int ensemble = 0; ensemble < nb_ens; ensemble++)
        count += static_cast<int>(members(ensemble).size());
    return count;
}

void elimine_pos_gap()
{
    list_analysed_species();
    const auto columns = static_cast<std::size_t>(nb_nuc_tot);
    retain.assign(columns + 1, position_removed);
    retain[columns] = end_of_positions;
    nb_nuc_keep = 0;
    if (nb_spec_auto == 0) return;

    const auto flags = hidden_columns(all_ensembles(), opt_nogap != 0);
    const auto gaps = gaps_of_analysed_species();
    const auto species = static_cast<std::uint32_t>(nb_spec_auto);
    const auto most = static_cast<std::uint32_t>(percent_gap);
    for (std::size_t p = 0; p < columns; p++) {
        if (flags[p] == column_hidden || gaps[p] * 100 / species > most) continue;
        retain[p] = position_kept;
        nb_nuc_keep++;
    }
}

} // namespace kq
