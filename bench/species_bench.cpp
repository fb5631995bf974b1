// The keys of the species screen on a list of 20000 selected species: outside drawing beside the plain form
// of the same rule, and with drawing; the moves of the tree and reorder screens with as many species loaded.
#include "bench/grouped_species.h"
#include "core/store.h"
#include "raster/grx.h"
#include "screen/text.h"
#include "screen/window.h"
#include "taxonomy/frame.h"
#include "taxonomy/frame_layout.h"
#include "taxonomy/group_moves.h"
#include "taxonomy/reorder_screen.h"
#include "taxonomy/selection.h"
#include "taxonomy/species_screen.h"
#include "taxonomy/tree_screen.h"
#include "taxonomy/tree_walk.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdlib>
#include <string>

namespace kq {
namespace {

// All species listed; selected too, or none of them.
void begin(bool selected, int lines = 34, int columns = 80)
{
    setenv("GRX20DRV", "memory", 1);
    _nb_line = lines;
    _nb_col = columns;
    GrMemoryScript("");
    open_window("bench");
    bench::load_grouped_species();
    selection_reset();
    collect_species_below(*proot);
    if (selected) retenir_all_specie(retain_all);
}

// ---- outside drawing --------------------------------------------------------------------------------------

// One species down, ten down, a column to the right, and back.
void moves(benchmark::State& state)
{
    begin(true);
    SpeciesScreen screen(list_without_group);
    for (auto _ : state) {
        screen.down(), screen.page_down(), screen.right();
        screen.left(), screen.page_up(), screen.up();
    }
    state.SetItemsProcessed(6 * state.iterations());
}

// The first species: every other one closes up.
void deselect_and_select(benchmark::State& state)
{
    begin(true);
    for (auto _ : state) {
        SpeciesScreen screen(list_without_group);
        screen.toggle_selection();
        screen.up(), screen.toggle_selection();
    }
    state.SetItemsProcessed(2 * state.iterations());
}

void mask_and_unmask(benchmark::State& state)
{
    begin(true);
    for (auto _ : state) {
        SpeciesScreen screen(list_without_group);
        screen.toggle_mask();
        screen.toggle_mask();
        state.PauseTiming();
        select_species(cor[0]);
        state.ResumeTiming();
    }
    state.SetItemsProcessed(2 * state.iterations());
}

void plain_toggle(int species)
{
    const auto s = static_cast<std::size_t>(species);
    auto& count =
        nbret_groupe[static_cast<std::size_t>(no_family[s])][static_cast<std::size_t>(no_groupe[s])];
    if (retenu[s] == -1) {
        retenu[s] = ++nb_retenu;
        count++;
        return;
    }
    for (int other = 0; other < nb_spec; other++)
        if (retenu[static_cast<std::size_t>(other)] > retenu[s]) retenu[static_cast<std::size_t>(other)]--;
    retenu[s] = -1;
    nb_retenu--;
    count--;
}

// A hundred species out of the selection and in again; every higher rank closes up.
void toggle_hundred(benchmark::State& state, bool plain)
{
    begin(true);
    for (auto _ : state) {
        if (plain) {
            for (const int species : working_list().first(100))
                plain_toggle(species);
        } else {
            SpeciesScreen(list_without_group).toggle_hundred();
        }
    }
}

// Finds the next species of another ensemble at the end of the list.
void next_of_another_ensemble(benchmark::State& state)
{
    begin(false);
    drap_select[static_cast<std::size_t>(cor[max_species - 1])] = 0;
    for (auto _ : state)
        SpeciesScreen(list_without_group).next_of_another_ensemble();
}

BENCHMARK(moves)->Unit(benchmark::kMicrosecond);
BENCHMARK(deselect_and_select)->Unit(benchmark::kMicrosecond);
BENCHMARK(mask_and_unmask)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(toggle_hundred, in_one_pass, false)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(toggle_hundred, one_by_one, true)->Unit(benchmark::kMicrosecond);
BENCHMARK(next_of_another_ensemble)->Unit(benchmark::kMicrosecond);

// ---- with drawing -----------------------------------------------------------------------------------------

void species_screen()
{
    choice_specie(list_without_group);
}

void reorder_screen()
{
    gere_reorder_specie_retenue();
}

// On the frame's root, half of the species selected: as many as an ensemble can take.
void tree_screen()
{
    set_selection(working_list().first(max_ensemble_species));
    pcour = proot;
    no_arbre = 0;
    adjust_frame();
    gere_arbre(0);
}

// A screen from its opening to its end, with 800 keys in between: `round` is four of them.
void keys(benchmark::State& state, void (*screen)(), const std::string& round, const std::string& end)
{
    constexpr int rounds = 200;
    std::string script;
    for (int i = 0; i < rounds; i++)
        script += round + " ";
    for (auto _ : state) {
        state.PauseTiming();
        begin(true, static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
        GrMemoryScript(script + end);
        state.ResumeTiming();
        screen();
    }
    state.SetItemsProcessed(4 * rounds * state.iterations());
}

void geometries(benchmark::internal::Benchmark* bench)
{
    bench->Args({34, 80})->Args({200, 160})->Unit(benchmark::kMillisecond);
}

BENCHMARK_CAPTURE(keys, down_up, species_screen, "Down Up Down Up", "Escape")->Apply(geometries);
BENCHMARK_CAPTURE(keys, a_view_on_and_back, species_screen, "Right*2 Left*2", "Escape")->Apply(geometries);
BENCHMARK_CAPTURE(keys, deselect_and_select, species_screen, "Enter Up Enter Up", "Escape")
    ->Apply(geometries);
BENCHMARK_CAPTURE(keys, reorder_down_up, reorder_screen, "Down Up Down Up", "Escape")->Apply(geometries);
BENCHMARK_CAPTURE(keys, reorder_views, reorder_screen, "Right*2 Left*2", "Escape")->Apply(geometries);
BENCHMARK_CAPTURE(keys, tree_down_up, tree_screen, "Up Down PgUp PgDn", "F3")->Apply(geometries);
BENCHMARK_CAPTURE(keys, tree_to_parent, tree_screen, "Left*3 Home", "F3")->Apply(geometries);

} // namespace
} // namespace kq

BENCHMARK_MAIN();
