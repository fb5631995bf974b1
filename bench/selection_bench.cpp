// Selecting, deselecting and grouping 20000 species, each beside the plain form of the same rule.
#include "bench/grouped_species.h"
#include "core/lifecycle.h"
#include "core/store.h"
#include "taxonomy/frame.h"
#include "taxonomy/group_files.h"
#include "taxonomy/selection.h"
#include "taxonomy/species_lists.h"
#include "taxonomy/tree_walk.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <string>
#include <string_view>

using namespace kq;

namespace {

// ---- the plain forms --------------------------------------------------------------------------------------

void plain_search(const node& top)
{
    const auto group = static_cast<std::size_t>(top.no);
    if (nbtot_groupe[static_cast<std::size_t>(top.family)][group] != 0)
        for (int s = 0; s < nb_spec; s++)
            if (no_groupe[static_cast<std::size_t>(s)] == top.no)
                cor[static_cast<std::size_t>(nb_spec_gro++)] = s;
    if (top.leaf()) return;
    plain_search(*top.child2);
    plain_search(*top.child1);
}

void plain_deselect(std::span<const int> list)
{
    for (const int species : list) {
        const auto s = static_cast<std::size_t>(species);
        const int rank = retenu[s];
        if (rank == -1) continue;
        for (int other = 0; other < nb_spec; other++)
            if (retenu[static_cast<std::size_t>(other)] > rank) retenu[static_cast<std::size_t>(other)]--;
        retenu[s] = -1;
        nb_retenu--;
        nbret_groupe[static_cast<std::size_t>(no_family[s])][static_cast<std::size_t>(no_groupe[s])]--;
    }
}

void plain_ranking()
{
    nb_spec_gro = 0;
    for (int s = 0; s < nb_spec; s++)
        if (retenu[static_cast<std::size_t>(s)] != -1) cor[static_cast<std::size_t>(nb_spec_gro++)] = s;
    std::sort(cor.begin(), cor.begin() + nb_spec_gro, [](int a, int b) {
        return retenu[static_cast<std::size_t>(a)] < retenu[static_cast<std::size_t>(b)];
    });
}

// Every line against every species. Returns the number of matches.
long plain_groups(std::string_view text)
{
    long matches = 0;
    while (!text.empty()) {
        const std::string_view line = text.substr(0, text.find('\n'));
        text.remove_prefix(line.size() + 1);
        const std::string_view name = line.substr(0, line.find(" ,")),
                               group = line.substr(line.find(',') + 2);
        for (int s = 0; s < nb_spec; s++) {
            if (nom_key(identifier(s)) != name) continue;
            no_groupe[static_cast<std::size_t>(s)] = find_group(group);
            matches++;
        }
    }
    return matches;
}

// ---- side by side -----------------------------------------------------------------------------------------

void select_fast(benchmark::State& state)
{
    bench::load_grouped_species();
    selection_reset();
    for (auto _ : state) {
        collect_species_below(*proot);
        retenir_all_specie(retain_all);
        state.PauseTiming();
        clear_selection();
        state.ResumeTiming();
    }
}

void select_plain(benchmark::State& state)
{
    bench::load_grouped_species();
    selection_reset();
    for (auto _ : state) {
        nb_spec_gro = 0;
        plain_search(*proot);
        retenir_all_specie(retain_all);
        state.PauseTiming();
        clear_selection();
        state.ResumeTiming();
    }
}

template <class Deselect>
void deselect(benchmark::State& state, Deselect deselect_below)
{
    bench::load_grouped_species();
    selection_reset();
    for (auto _ : state) {
        state.PauseTiming();
        collect_species_below(*proot);
        retenir_all_specie(retain_all);
        state.ResumeTiming();
        deselect_below(*proot);
    }
    if (nb_retenu != 0) state.SkipWithError("species are left");
}

void deselect_fast(benchmark::State& state)
{
    deselect(state, annule_groupe);
}

void deselect_plain(benchmark::State& state)
{
    deselect(state, [](const node& top) {
        nb_spec_gro = 0;
        plain_search(top);
        plain_deselect(working_list());
    });
}

template <class Rank>
void rank_selection(benchmark::State& state, Rank rank)
{
    bench::load_grouped_species();
    selection_reset();
    collect_species_below(*proot);
    retenir_all_specie(retain_all);
    for (auto _ : state)
        rank();
    clear_selection();
}

void ranking_fast(benchmark::State& state)
{
    rank_selection(state, chercher_specie_retenue);
}

void ranking_plain(benchmark::State& state)
{
    rank_selection(state, plain_ranking);
}

void groups_fast(benchmark::State& state)
{
    const std::string& nom_file = bench::load_grouped_species();
    for (auto _ : state)
        if (!assign_groups(nom_file, "nom").empty()) state.SkipWithError("the group file is refused");
}

void groups_plain(benchmark::State& state)
{
    const std::string& nom_file = bench::load_grouped_species();
    for (auto _ : state)
        if (plain_groups(nom_file) != max_species) state.SkipWithError("species are missing");
}

BENCHMARK(select_fast)->Unit(benchmark::kMillisecond);
BENCHMARK(select_plain)->Unit(benchmark::kMillisecond);
BENCHMARK(deselect_fast)->Unit(benchmark::kMillisecond);
BENCHMARK(deselect_plain)->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK(ranking_fast)->Unit(benchmark::kMillisecond);
BENCHMARK(ranking_plain)->Unit(benchmark::kMillisecond);
BENCHMARK(groups_fast)->Unit(benchmark::kMillisecond);
BENCHMARK(groups_plain)->Unit(benchmark::kMillisecond)->Iterations(1);

} // namespace

BENCHMARK_MAIN();
