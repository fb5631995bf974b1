// The counter of differences of EST mode, which runs at every key, and the compaction of all species, each
// beside its plain version. Drawing is not measured.
#include "bench/loaded_alignment.h"
#include "core/column_counts.h"
#include "core/columns.h"
#include "core/store.h"
#include "editor/difference_counter.h"
#include "editor/view.h"
#include "tools/gap_compaction.h"

#include <benchmark/benchmark.h>

#include <string>

using namespace kq;

namespace {

void name_size(benchmark::State& state, int size)
{
    state.SetLabel(std::to_string(bench::sizes[size].species) + " x " +
                   std::to_string(bench::sizes[size].columns));
    bench::load(size);
}

std::string_view text_of(int species)
{
    const auto text = row(species);
    return {text.data(), text.size()};
}

// ---- the counter ------------------------------------------------------------------------------------------

void Counter(benchmark::State& state)
{
    name_size(state, 1);
    const auto columns = static_cast<std::size_t>(nb_nuc_tot);
    for (auto _ : state)
        benchmark::DoNotOptimize(
            count_differences_beside(text_of(0), text_of(1), {delcom, columns}, nb_nuc_tot / 2));
}
BENCHMARK(Counter)->Unit(benchmark::kMicrosecond);

void CounterPlain(benchmark::State& state)
{
    name_size(state, 1);
    const std::vector<unsigned char> hidden(delcom, delcom + nb_nuc_tot);
    for (auto _ : state)
        benchmark::DoNotOptimize(plain::differences_beside(text_of(0), text_of(1), hidden, nb_nuc_tot / 2));
}
BENCHMARK(CounterPlain)->Unit(benchmark::kMicrosecond);

// ---- compaction -------------------------------------------------------------------------------------------

// To the left and to the right in turn: every row changes each time. Everything that the command brings up to
// date is included.
void Compaction(benchmark::State& state)
{
    name_size(state, static_cast<int>(state.range(0)));
    pos_deb = 0;
    pos_fin = nb_nuc_tot - 1;
    auto direction = Direction::left;
    for (auto _ : state) {
        do_compaction(direction, SpeciesSet::all_species, 0);
        bench::recompute();
        direction = direction == Direction::left ? Direction::right : Direction::left;
    }
}

// One row after the other, then one recount.
void CompactionPlain(benchmark::State& state)
{
    name_size(state, static_cast<int>(state.range(0)));
    bool to_the_left = true;
    for (auto _ : state) {
        for (int species = 0; species < nb_spec; species++)
            plain::compact({row_storage(species), static_cast<std::size_t>(nb_nuc_tot)}, to_the_left);
        counts_forget();
        bench::recompute();
        to_the_left = !to_the_left;
    }
}

// Sizes one after the other: an alignment is loaded once for all benchmarks of its size.
const int registered = [] {
    for (const int size : {0, 2}) {
        benchmark::RegisterBenchmark("Compaction", Compaction)
            ->Arg(size)
            ->Unit(benchmark::kMillisecond)
            ->UseRealTime();
        benchmark::RegisterBenchmark("CompactionPlain", CompactionPlain)
            ->Arg(size)
            ->Unit(benchmark::kMillisecond)
            ->UseRealTime();
    }
    return 0;
}();

} // namespace

BENCHMARK_MAIN();
