// The editor's keys on the largest alignments: moves outside drawing, and from a key to changed pixels.
#include "core/columns.h"
#include "core/consensus.h"
#include "core/edit.h"
#include "core/lifecycle.h"
#include "core/options.h"
#include "core/store.h"
#include "editor/colour_scale.h"
#include "editor/display.h"
#include "editor/editing.h"
#include "editor/editor.h"
#include "editor/navigation.h"
#include "editor/view.h"
#include "raster/grx.h"
#include "screen/directories.h"
#include "screen/strings.h"
#include "screen/text.h"
#include "screen/window.h"
#include "taxonomy/frame.h"

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <random>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace kq {
namespace {

// ---- the alignments ---------------------------------------------------------------------------------------

// Rows that differ from each other in a tenth of their columns; the middle half of the columns is hidden.
void load(int species, int columns)
{
    static std::pair<int, int> loaded;
    if (std::exchange(loaded, {species, columns}) == std::pair(species, columns)) return;
    libere_memoire();
    reset_ensembles();
    if (!store_allocate() || !store_begin(species, columns).empty()) std::abort();
    std::mt19937 random(7);
    std::string text;
    for (int p = 0; p < columns; p++)
        text += p > columns / 4 && p < columns * 3 / 4 ? '*' : "ACGT"[random() % 4];
    for (int i = 0; i < species; i++) {
        for (int change = 0; change < columns / 10; change++) {
            const auto p = random() % text.size();
            if (text[p] != '*') text[p] = "ACGT-"[random() % 5];
        }
        store_put(i, text_format("Species %d@X%d", i, i), text, false, false);
    }
    set_caractere();
    if (!columns_allocate(columns) || !consensus_allocate(0, columns).empty()) std::abort();
    counts_forget();
    nb_groupe = 1;
    color_groupe[0] = color::light_grey;
}

// All species in ensembles of at most 10000.
void make_ensembles(bool are_collapsed)
{
    reset_ensembles();
    std::vector<int> list;
    for (int species = 0; species < nb_spec; species++) {
        list.push_back(species);
        if (std::ssize(list) < max_ensemble_species && species + 1 < nb_spec) continue;
        const int e = nb_spec_ens[0] == 0 ? 0 : add_ensemble();
        set_members(e, list);
        set_collapsed(e, are_collapsed);
        compute_consensus(e);
        list.clear();
    }
}

void enter(int species, int columns, bool are_collapsed, int lines, int screen_columns)
{
    setenv("GRX20DRV", "memory", 1);
    _nb_line = lines;
    _nb_col = screen_columns;
    GrMemoryScript("");
    open_window("bench");
    build_color_scale();
    options_reset();
    load(species, columns);
    make_ensembles(are_collapsed);
    prem_ens = prem_spec = dec_pos_curs = pos_curs = 0;
    nb_spec_affich = count_display_rows();
    init_param();
    affich_menu_affich_seq();
}

// ---- moves, outside drawing -------------------------------------------------------------------------------

// Arguments: species, columns.
void sizes(benchmark::internal::Benchmark* bench)
{
    bench->Args({20000, 14900})->Args({2000, 149000})->Args({20000, 1500})->Unit(benchmark::kMicrosecond);
}

template <auto there, auto back>
void moves(benchmark::State& state)
{
    enter(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)), false, 34, 100);
    for ([[maybe_unused]] auto _ : state) {
        there();
        back();
    }
    state.SetItemsProcessed(2 * state.iterations());
}

constexpr auto right = [] { deplace_site_droite(30); };
constexpr auto left = [] { deplace_site_gauche(30); };
constexpr auto page_down = [] { deplace_curseur_bas(_nb_line - 2); };
constexpr auto page_up = [] { deplace_curseur_haut(_nb_line - 2); };

BENCHMARK(moves<right, left>)->Name("moves/30_positions")->Apply(sizes);
BENCHMARK(moves<goto_fin, goto_debut>)->Name("moves/end_home")->Apply(sizes);
BENCHMARK(moves<page_down, page_up>)->Name("moves/page")->Apply(sizes);

// The status line counts the residues up to the last position.
void status_at_the_end(benchmark::State& state)
{
    enter(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)), false, 34, 100);
    goto_fin();
    for ([[maybe_unused]] auto _ : state)
        affich_status();
}
BENCHMARK(status_at_the_end)->Apply(sizes);

// Over the hidden half of the columns, one position there and one back.
void over_hidden_columns(benchmark::State& state)
{
    enter(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)), false, 34, 100);
    while (cursor_position() < nb_nuc_tot / 2)
        deplace_site_droite(1);
    for ([[maybe_unused]] auto _ : state) {
        deplace_site_gauche(1);
        deplace_site_droite(1);
    }
}
BENCHMARK(over_hidden_columns)->Apply(sizes);

// ---- many gaps in and out, outside drawing ----------------------------------------------------------------

// 500 "*" into a row of 149000 columns and out again: in one step each, or one by one.
void many_gaps(benchmark::State& state, bool at_once)
{
    constexpr int gaps = 500;
    enter(2000, 149000, false, 34, 100);
    for ([[maybe_unused]] auto _ : state) {
        if (at_once) {
            add_chars('*', gaps);
            suppr_all_chars();
        } else {
            for (int i = 0; i < gaps; i++)
                add_char('*');
            while (suppr_char() == 0) {
            }
        }
    }
}
BENCHMARK_CAPTURE(many_gaps, in_one_step, true)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(many_gaps, one_by_one, false)->Unit(benchmark::kMillisecond);

// ---- from a key to changed pixels -------------------------------------------------------------------------

// The whole pass of the loop: status line, cursor, key, action, redraw, and what a key's reading presents.
// The keys go there and back; `before` leads to where they are pressed.
void key_to_pixels(benchmark::State& state, std::string_view before, std::string_view keys,
                   bool are_collapsed)
{
    enter(20000, 14900, are_collapsed, static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
    if (are_collapsed) { // rows of a third ensemble below the two collapsed ones
        const int e = add_ensemble();
        set_members(e, std::vector{0, 5000, 10000, 15000});
        nb_spec_affich = count_display_rows();
        affich_menu_affich_seq();
    }
    opt_consensus = 1;
    compute_ligne_consensus();
    std::string script;
    for (int i = 0; i < state.max_iterations; i++)
        script += std::string(keys) + " ";
    GrMemoryScript(std::string(before) + " " + script);
    if (!before.empty()) gere_affich_seq(), gere_affich_seq();
    for ([[maybe_unused]] auto _ : state)
        gere_affich_seq();
}

void geometries(benchmark::internal::Benchmark* bench)
{
    bench->Args({34, 100})->Args({200, 160})->Unit(benchmark::kMicrosecond)->Iterations(400);
}

BENCHMARK_CAPTURE(key_to_pixels, right_left, "", "Right Left", false)->Apply(geometries);
BENCHMARK_CAPTURE(key_to_pixels, scroll_to_the_end_and_back, "", "End Home", false)->Apply(geometries);
BENCHMARK_CAPTURE(key_to_pixels, scroll_half_a_screen, "", "A-KPPlus A-KPMinus", false)->Apply(geometries);
BENCHMARK_CAPTURE(key_to_pixels, gap_in_one_row, "Down*2", "* Delete", true)->Apply(geometries);
BENCHMARK_CAPTURE(key_to_pixels, gap_in_a_collapsed_ensemble, "", "* Delete", true)->Apply(geometries);

} // namespace
} // namespace kq

BENCHMARK_MAIN();
