// Loading a list of 10000 species on an alignment of 20000, beside the plain form; moving on the chooser of
// lists.
#include "core/lifecycle.h"
#include "core/store.h"
#include "raster/grx.h"
#include "raster/keys.h"
#include "screen/files.h"
#include "screen/text.h"
#include "screen/window.h"
#include "support/plain_lists.h"
#include "taxonomy/filename_list.h"
#include "taxonomy/lis_file.h"
#include "taxonomy/selection.h"
#include "taxonomy/species_lists.h"
#include "timing.h"

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

using namespace kq;

namespace {

constexpr int listed_species = 10000;

std::string list_path()
{
    return bench::folder() + "half.lis";
}

// The largest alignment, short rows; every second species is on the list, in another order.
void prepare()
{
    static bool ready = false;
    if (ready) return;
    ready = true;
    store_allocate();
    store_begin(max_species, 4);
    for (int s = 0; s < max_species; s++)
        store_put(s, bench::species_name(s), "ACGT", false, false);
    selection_reset();
    std::vector<std::string_view> names;
    for (int i = 0; i < listed_species; i++)
        names.push_back(identifier(static_cast<int>(i * 7919L % listed_species) * 2 + 1));
    std::filesystem::create_directories(bench::folder());
    write_file_safely(list_path(), lis_text("Unknown", "a day", "Untitled", names));
}

// Both read the file. Argument: without accessions.
void load_fast(benchmark::State& state)
{
    prepare();
    for ([[maybe_unused]] auto _ : state)
        select_listed(read_lis(list_path()).names, state.range(0) != 0);
    if (nb_retenu != listed_species) state.SkipWithError("species are missing");
}

void load_plain(benchmark::State& state)
{
    prepare();
    for ([[maybe_unused]] auto _ : state)
        set_selection(plain::listed_species(read_lis(list_path()).names, state.range(0) != 0).found);
    if (nb_retenu != listed_species) state.SkipWithError("species are missing");
}

// Keys among 5000 names, each with the drawing of the list into the surface: from one end of the list to the
// other and back, a step a time. Arguments: lines, columns of the window.
template <int there, int back>
void moves(benchmark::State& state)
{
    setenv("GRX20DRV", "memory", 1);
    _nb_line = static_cast<int>(state.range(0));
    _nb_col = static_cast<int>(state.range(1));
    GrMemoryScript("");
    open_window("bench");
    std::vector<std::string> names;
    for (int i = 0; i < 5000; i++)
        names.push_back("list_of_species_" + std::to_string(100000 + i) + ".lis");
    FilenameList list(3, _nb_line - 2);
    list.set_names(names);
    int pressed = there;
    for ([[maybe_unused]] auto _ : state) {
        list.gere_liste_filename(pressed);
        if (list.cursor() == 0) pressed = there;
        if (list.cursor() + 1 == std::ssize(names)) pressed = back;
    }
}

void geometries(benchmark::internal::Benchmark* bench)
{
    bench->Args({34, 80})->Args({200, 160})->Unit(benchmark::kMicrosecond);
}

BENCHMARK(load_fast)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);
BENCHMARK(load_plain)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(moves<key::down, key::up>)->Name("moves/one_name")->Apply(geometries);
BENCHMARK(moves<key::pgdn, key::pgup>)->Name("moves/page")->Apply(geometries);
BENCHMARK(moves<key::right, key::left>)->Name("moves/column")->Apply(geometries); // most of them scroll

} // namespace

BENCHMARK_MAIN();
