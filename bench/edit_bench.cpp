// What keys cost that change rows, each beside its plain version: the same change, then every column counted
// anew from the rows. Drawing is not measured.
#include "bench/loaded_alignment.h"
#include "core/columns.h"
#include "core/consensus.h"
#include "core/edit.h"
#include "core/store.h"

#include <benchmark/benchmark.h>

#include <cstring>

using namespace kq;

namespace {

constexpr int early_column = 50;  // nearly all columns change
constexpr int cursor_species = 5; // a member of a collapsed ensemble and of one that is shown

void name_size(benchmark::State& state)
{
    const auto& size = bench::sizes[state.range(0)];
    state.SetLabel(std::to_string(size.species) + " x " + std::to_string(size.columns));
    bench::load(static_cast<int>(state.range(0)));
}

// A gap goes in and out again; two keys an iteration, so times are for both.
template <typename Recompute>
void two_keys(benchmark::State& state, const Rows& rows, int p, Recompute recompute)
{
    for (auto _ : state) {
        insert_chars(rows, p, 1, '*');
        recompute();
        delete_chars(rows, p, 1);
        recompute();
    }
    state.counters["keys"] =
        benchmark::Counter(2, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void RowKey(benchmark::State& state)
{
    name_size(state);
    two_keys(state, Rows::one(cursor_species), early_column, bench::recompute);
}

void RowKeyPlain(benchmark::State& state)
{
    name_size(state);
    two_keys(state, Rows::one(cursor_species), early_column, bench::recompute_plainly);
    bench::recompute();
}

void EnsembleKey(benchmark::State& state)
{
    name_size(state);
    two_keys(state, Rows::of_ensemble(0), nb_nuc_tot / 2, bench::recompute);
}

void EnsembleKeyPlain(benchmark::State& state)
{
    name_size(state);
    two_keys(state, Rows::of_ensemble(0), nb_nuc_tot / 2, bench::recompute_plainly);
    bench::recompute();
}

// Each iteration makes the alignment one column longer; ninety fit before the limit.
constexpr int openings = 15;

void OpenColumn(benchmark::State& state)
{
    name_size(state);
    for (auto _ : state) {
        if (open_columns(Rows::one(cursor_species), nb_nuc_tot / 2, 1) != Growth::grown)
            state.SkipWithError("the alignment is full");
        bench::recompute();
    }
}

// The least that opening a column takes: one pass that moves half of every row.
void OpenColumnPlain(benchmark::State& state)
{
    name_size(state);
    const auto half = static_cast<std::size_t>(nb_nuc_tot / 2);
    for (auto _ : state) {
        for (int species = 0; species < nb_spec; species++) {
            char* text = row_storage(species) + half;
            std::memmove(text + 1, text, half - 1);
            *text = '*';
        }
        benchmark::ClobberMemory();
    }
    counts_forget();
    bench::recompute();
}

void Collapse(benchmark::State& state)
{
    name_size(state);
    for (auto _ : state) {
        set_collapsed(0, false);
        set_collapsed(0, true);
        compute_consensus(0);
    }
}

void CollapsePlain(benchmark::State& state)
{
    name_size(state);
    for (auto _ : state)
        benchmark::DoNotOptimize(
            plain::ensemble_consensus(bench::texts_of_ensemble(0), nb_nuc_tot, type_seq, caractere));
}

// Sizes one after the other: an alignment is loaded once for all benchmarks of its size.
const int registered = [] {
    for (int i = 0; i < 3; i++) {
        const auto add = [i](const char* name, void (*run)(benchmark::State&)) {
            return benchmark::RegisterBenchmark(name, run)
                ->Arg(i)
                ->Unit(benchmark::kMillisecond)
                ->UseRealTime();
        };
        add("RowKey", RowKey);
        add("RowKeyPlain", RowKeyPlain)->Iterations(2);
        add("EnsembleKey", EnsembleKey);
        add("EnsembleKeyPlain", EnsembleKeyPlain)->Iterations(2);
        add("Collapse", Collapse);
        add("CollapsePlain", CollapsePlain)->Iterations(3);
        add("OpenColumn", OpenColumn)->Iterations(openings);
        add("OpenColumnPlain", OpenColumnPlain)->Iterations(openings);
    }
    return 0;
}();

} // namespace

BENCHMARK_MAIN();
