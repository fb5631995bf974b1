// The kernels behind a key press, over all columns: counting rows, one row's change, consensus and hidden
// columns. Plain: the same answer column by column from the same counters, or character by character.
#include "bench/loaded_alignment.h"
#include "core/column_counts.h"
#include "core/columns.h"
#include "core/consensus.h"
#include "core/consensus_kernel.h"
#include "core/residues.h"
#include "core/store.h"

#include <benchmark/benchmark.h>

#include <array>

using namespace kq;

namespace {

ColumnRange all_columns()
{
    return {0, nb_nuc_tot};
}

using Codes = std::array<std::uint32_t, codes_prot>;

std::span<const std::uint32_t> gather(const CountTable& counts, int column, Codes& codes)
{
    for (int code = 0; code < counts.codes(); code++)
        codes[static_cast<std::size_t>(code)] = counts.count(code, column);
    return std::span(codes).first(static_cast<std::size_t>(counts.codes()));
}

void MarkColumns(benchmark::State& state)
{
    const auto& counts = column_counts(CountedSet::ensembles);
    for (auto _ : state)
        mark_columns(counts, all_columns(), ligne_consensus);
}

void MarkColumnsPlain(benchmark::State& state)
{
    const auto& counts = column_counts(CountedSet::ensembles);
    Codes codes;
    for (auto _ : state)
        for (int p = 0; p < nb_nuc_tot; p++)
            ligne_consensus[p] =
                consensus_mark(gather(counts, p, codes), static_cast<std::uint32_t>(counts.members()));
}

void ConsensusColumns(benchmark::State& state)
{
    const auto& counts = column_counts(CountedSet::ensemble, 0);
    for (auto _ : state)
        consensus_columns(counts, all_columns(), caractere, seq_cons[0], val_seq_cons[0]);
}

void ConsensusColumnsPlain(benchmark::State& state)
{
    const auto& counts = column_counts(CountedSet::ensemble, 0);
    Codes codes;
    for (auto _ : state)
        for (int p = 0; p < nb_nuc_tot; p++) {
            const auto found = column_consensus(gather(counts, p, codes), counts.blank(p),
                                                static_cast<std::uint32_t>(counts.members()), caractere);
            seq_cons[0][p] = found.character;
            val_seq_cons[0][p] = found.level;
        }
}

void HiddenColumns(benchmark::State& state)
{
    for (auto _ : state)
        recompute_hidden(false, 0);
}

void HiddenColumnsPlain(benchmark::State& state)
{
    plain::Texts texts;
    for (int e = 0; e < nb_ens; e++)
        for (const auto text : bench::texts_of_ensemble(e))
            texts.push_back(text);
    for (auto _ : state)
        benchmark::DoNotOptimize(plain::hidden_columns(texts, nb_nuc_tot));
}

// One row against itself shifted by one column: what a gap at the start of the row changes.
void ChangeRow(benchmark::State& state)
{
    CountTable table;
    table.start(type_seq, nb_nuc_tot, 1);
    const auto text = row(0);
    const std::string_view before(text.data(), text.size() - 1), after(text.data() + 1, text.size() - 1);
    for (auto _ : state)
        table.change(0, before, after, 1);
}

void CountRows(benchmark::State& state)
{
    for (auto _ : state) {
        release_counts(CountedSet::ensemble, 0);
        column_counts(CountedSet::ensemble, 0);
    }
}

void CountRowsPlain(benchmark::State& state)
{
    const auto texts = bench::texts_of_ensemble(0);
    const auto& codes = residue_codes(type_seq);
    const auto columns = static_cast<std::size_t>(nb_nuc_tot);
    for (auto _ : state) {
        std::vector<std::uint16_t> counters(columns * most_classes);
        for (const auto text : texts)
            for (std::size_t p = 0; p < columns; p++) {
                const int code = codes[static_cast<unsigned char>(text[p])];
                if (code >= 0) counters[static_cast<std::size_t>(code) * columns + p]++;
            }
        benchmark::DoNotOptimize(counters.data());
    }
}

const int registered = [] {
    for (int i = 0; i < 3; i++) {
        const auto add = [i](const char* name, void (*run)(benchmark::State&)) {
            const auto& size = bench::sizes[i];
            const auto label =
                std::string(name) + "/" + std::to_string(size.species) + "x" + std::to_string(size.columns);
            benchmark::RegisterBenchmark(label.c_str(),
                                         [i, run](benchmark::State& state) {
                                             bench::load(i);
                                             run(state);
                                         })
                ->Unit(benchmark::kMillisecond)
                ->UseRealTime();
        };
        add("MarkColumns", MarkColumns);
        add("MarkColumnsPlain", MarkColumnsPlain);
        add("ConsensusColumns", ConsensusColumns);
        add("ConsensusColumnsPlain", ConsensusColumnsPlain);
        add("HiddenColumns", HiddenColumns);
        add("HiddenColumnsPlain", HiddenColumnsPlain);
        add("ChangeRow", ChangeRow);
        add("CountRows", CountRows);
        add("CountRowsPlain", CountRowsPlain);
    }
    return 0;
}();

} // namespace

BENCHMARK_MAIN();
