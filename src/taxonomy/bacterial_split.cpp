// model: the fixed split of bacterial alignments into five ensembles.
#include "taxonomy/bacterial_split.h"

#include "core/consensus.h"
#include "core/edit.h"
#include "core/store.h"
#include "screen/process_end.h"
#include "taxonomy/frame.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <string_view>
#include <vector>

namespace kq {

namespace {

struct Rule {
    std::string_view group;
    int ensemble;
};
constexpr Rule rules[] = {
    {"Gram_positive_low_GC", 0}, {"Gram_positive_high_GC", 1}, {"Radioresistants", 1},  {"Cyanobacteria", 1},
    {"G_Proteobacteria", 2},     {"B_Proteobacteria", 2},      {"A_Proteobacteria", 3},
};
// Deliberate: whatever occurs in this text goes to the last ensemble.
constexpr std::string_view others =
    "D_Proteobacteria,E_Proteobacteria,Chlamydiales,Spirochaetes,Cytophagales,Green_non_sulfur,"
    "Green_sulfur,Thermotogales,Aquificales,Fusobacteria,Planctomycetales";

void make_five_ensembles()
{
    while (nb_ens > bacterial_ensembles)
        remove_ensemble(nb_ens - 1);
    while (nb_ens < bacterial_ensembles) {
        const std::string missing = consensus_allocate(nb_ens, nb_nuc_tot);
        if (!missing.empty() || add_ensemble() < 0)
            erreur_fatale("Insufficient available memory (" + (missing.empty() ? "seq_cons" : missing) + ")");
    }
}

} // namespace

int bacterial_ensemble_of(int group)
{
    if (group < 0 || group >= nb_groupe) return -1;
    const std::string_view name = group_name(group);
    const auto* rule = std::ranges::find(rules, name, &Rule::group);
    if (rule != std::end(rules)) return rule->ensemble;
    return !name.empty() && others.find(name) != std::string_view::npos ? bacterial_ensembles - 1 : -1;
}

BacterialSplit selection_auto_bacteria()
{
    std::array<std::vector<int>, bacterial_ensembles> lists;
    bool found = false, left_out = false;
    for (int s = 0; s < nb_spec; s++) {
        const auto species = static_cast<std::size_t>(s);
        const int ensemble = destroy[species] ? -1 : bacterial_ensemble_of(no_groupe[species]);
        if (ensemble < 0) continue;
        found = true;
        auto& list = lists[static_cast<std::size_t>(ensemble)];
        if (std::ssize(list) < max_ensemble_species)
            list.push_back(s);
        else
            left_out = true;
    }
    if (!found) return BacterialSplit::none;

    make_five_ensembles();
    for (int e = 0; e < bacterial_ensembles; e++) {
        set_members(e, lists[static_cast<std::size_t>(e)]);
        set_collapsed(e, e != 0);
        if (e != 0) set_ensemble_name(e, ""); // an earlier ensemble's
        compute_consensus(e);
    }
    for (int e = 0; e < bacterial_ensembles; e++)
        std::printf("%d\n", nb_spec_ens[static_cast<std::size_t>(e)]);
    std::fflush(stdout);
    return left_out ? BacterialSplit::incomplete : BacterialSplit::done;
}

} // namespace kq
