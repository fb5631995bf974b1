// The similarity search beside the walk from every start position, and its keys in the editor.
#include "bench/loaded_alignment.h"
#include "core/edit.h"
#include "core/store.h"
#include "editor/align_all.h"
#include "editor/navigation.h"
#include "editor/similarity.h"
#include "editor/view.h"
#include "support/plain_similarity.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <string>
#include <vector>

namespace kq {
namespace {

// The alignments by their index in bench::sizes: 20000 x 1500 and 20000 x 14900.
void alignments(benchmark::internal::Benchmark* bench)
{
    bench->ArgNames({"size", "pattern"})->Unit(benchmark::kMillisecond)->UseRealTime();
    for (const int size : {2, 0})
        for (const int length : {typed_pattern, fragment_pattern})
            bench->Args({size, length});
}

void load(benchmark::State& state)
{
    bench::load(static_cast<int>(state.range(0)));
    set_pattern(residues_from(searched_text(nb_spec / 2), nb_nuc_tot / 3, static_cast<int>(state.range(1))));
}

std::vector<SimilarityHit> plain_ranking()
{
    std::vector<SimilarityHit> ranking(max_species_hits);
    const int last = nb_nuc_tot - static_cast<int>(pattern().size()) + 1;
    for (int species = 0; species < nb_spec; species++) {
        const auto hits = plain::similar_positions(searched_text(species), pattern(), 0, last, max_hits);
        rank_hit(ranking, {hits[0].score, hits[0].position, species});
    }
    return ranking;
}

void all_species_fast(benchmark::State& state)
{
    load(state);
    for ([[maybe_unused]] auto _ : state)
        search_species(-1, all_species);
}

// Also holds the two rankings against each other.
void all_species_plain(benchmark::State& state)
{
    load(state);
    std::vector<SimilarityHit> ranking;
    for ([[maybe_unused]] auto _ : state)
        ranking = plain_ranking();
    search_species(-1, all_species);
    for (std::size_t i = 0; i < ranking.size(); i++)
        if (sim_tous[i] != ranking[i].score || posi_tous[i] != ranking[i].position + 1 ||
            esp_tous[i] != ranking[i].species)
            state.SkipWithError("the rankings differ");
}

BENCHMARK(all_species_fast)->Apply(alignments);
BENCHMARK(all_species_plain)->Apply(alignments)->Iterations(1);

// ---- keys, outside drawing --------------------------------------------------------------------------------

// The top row is the last of the ten that are shown one by one.
int top_species()
{
    return members(2)[9];
}

// Rows become the top row without its gaps, which key A then finds again.
void lose_gaps(const Rows& rows)
{
    const auto residues = residues_from(searched_text(top_species()), 0, nb_nuc_tot);
    for (const int species : rows.species())
        if (species != top_species()) replace_text(species, residues);
}

void enter(DisplayRow cursor)
{
    nb_spec_affich = count_display_rows();
    bench::recompute();
    init_param();
    set_top_row({2, 9});
    set_cursor_row(cursor);
    goto_debut();
}

// Key ",": the pattern at the cursor sought within 500 columns, and the gaps put in.
void key_comma(benchmark::State& state)
{
    bench::load(static_cast<int>(state.range(0)));
    const int species = members(2)[0];
    const std::string text(searched_text(species));
    for ([[maybe_unused]] auto _ : state) {
        state.PauseTiming();
        replace_text(species, text.substr(5)); // five columns too far left
        enter({2, 0});
        deplace_site_droite(nb_nuc_tot / 3);
        state.ResumeTiming();
        seek_in_top_row(typed_pattern, apply_clear_hit, 0, 500);
    }
    state.counters["columns"] = posi[0] - 1 - cursor_position();
}

void align_by_steps()
{
    while (aligne_proche() == 0) {
    }
}

// Key A, at once or step by step, on one row or on a collapsed ensemble of half of the species.
void key_A(benchmark::State& state, bool are_collapsed, bool at_once)
{
    bench::load(static_cast<int>(state.range(0)));
    const Rows rows = are_collapsed ? Rows::of_ensemble(1) : Rows::one(members(2)[0]);
    double gaps = 0;
    for ([[maybe_unused]] auto _ : state) {
        state.PauseTiming();
        lose_gaps(rows);
        enter({are_collapsed ? 1 : 2, 0});
        state.ResumeTiming();
        at_once ? static_cast<void>(align_all_key()) : align_by_steps();
        const auto text = searched_text(rows.species()[0]);
        for (std::size_t p = 1; p < text.size(); p++)
            gaps += text[p] == '*' && text[p - 1] != '*';
    }
    state.counters["gaps"] = gaps / static_cast<double>(state.iterations());
}

// 20000 x 14900 and 20000 x 1500.
void sizes(benchmark::internal::Benchmark* bench)
{
    bench->ArgName("size")->Unit(benchmark::kMillisecond)->UseRealTime()->Arg(2)->Arg(0);
}

BENCHMARK(key_comma)->Apply(sizes)->Iterations(20);
BENCHMARK_CAPTURE(key_A, one_row, false, true)->Apply(sizes)->Iterations(2);
BENCHMARK_CAPTURE(key_A, one_row_by_steps, false, false)->Apply(sizes)->Iterations(1);
BENCHMARK_CAPTURE(key_A, half_of_species, true, true)->Apply(sizes)->Iterations(1);
BENCHMARK_CAPTURE(key_A, half_of_species_by_steps, true, false)->Apply(sizes)->Iterations(1);

} // namespace
} // namespace kq

BENCHMARK_MAIN();
