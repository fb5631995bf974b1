// Collapsing and sorting an ensemble of 10000 species, and moves on the option screens, with 20000 species
// loaded. Plain: one pass over the rows of the ensemble that counts its columns, no more.
#include "bench/loaded_alignment.h"
#include "core/edit.h"
#include "core/residues.h"
#include "core/store.h"
#include "editor/colour_scale.h"
#include "editor/display.h"
#include "editor/ensemble_commands.h"
#include "editor/ensemble_display.h"
#include "editor/navigation.h"
#include "editor/options_screen.h"
#include "editor/view.h"
#include "raster/grx.h"
#include "screen/directories.h"
#include "screen/text.h"
#include "screen/window.h"
#include "taxonomy/frame.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <numeric>
#include <string>
#include <vector>

namespace kq {
namespace {

constexpr int rounds = 15;

// ---- commands ---------------------------------------------------------------------------------------------

volatile std::uint32_t kept; // keeps the plain pass

void count_plainly()
{
    const auto& codes = residue_codes(type_seq);
    const auto columns = static_cast<std::size_t>(nb_nuc_tot);
    std::vector<std::uint32_t> counters(columns * codes_prot);
    for (const auto text : bench::texts_of_ensemble(0))
        for (std::size_t p = 0; p < columns; p++) {
            const int code = codes[static_cast<unsigned char>(text[p])];
            if (code >= 0) counters[static_cast<std::size_t>(code) * columns + p]++;
        }
    kept = std::accumulate(counters.begin(), counters.end(), std::uint32_t{0});
}

void time_collapsing(int size)
{
    bench::load(size);
    std::vector<double> plain, collapsing, sorting;
    for (int i = 0; i < rounds; i++) {
        plain.push_back(bench::seconds(count_plainly));
        if (collapsed(0)) toggle_ensemble_display(0);
        collapsing.push_back(bench::seconds([] { toggle_ensemble_display(0); }));
        std::vector<int> reversed(members(0).rbegin(), members(0).rend());
        set_members(0, reversed);
        sorting.push_back(bench::seconds([] { sort_species_alpha(0); }));
    }
    std::printf("%d of %d x %d: collapse %.1f ms, one plain pass %.1f ms, ratio %.2f; sort %.2f ms\n",
                nb_spec_ens[0], nb_spec, nb_nuc_tot, bench::median(collapsing) * 1e3,
                bench::median(plain) * 1e3, bench::median(collapsing) / bench::median(plain),
                bench::median(sorting) * 1e3);
}

// ---- moves ------------------------------------------------------------------------------------------------

// Milliseconds a key, drawing included, between `before` and `after`, which cost the same without keys.
template <typename Screen>
void time_moves(const char* what, const std::string& before, const std::string& keys,
                const std::string& after, Screen screen)
{
    constexpr int times = 2000;
    std::string script;
    for (int i = 0; i < times; i++)
        script += keys + " ";
    std::vector<double> empty, full;
    for (int i = 0; i < rounds; i++) {
        GrMemoryScript(before + " " + after);
        empty.push_back(bench::seconds(screen));
        GrMemoryScript(before + " " + script + after);
        full.push_back(bench::seconds(screen));
    }
    const double each = (bench::median(full) - bench::median(empty)) / times * 1e3;
    std::printf("%s, %d x %d cells: %.4f ms a key\n", what, _nb_line, _nb_col, each);
}

void open(int lines, int columns)
{
    _nb_line = lines;
    _nb_col = columns;
    GrMemoryScript("");
    open_window("bench");
    build_color_scale();
    prem_ens = prem_spec = dec_pos_curs = pos_curs = 0;
    nb_spec_affich = count_display_rows();
    init_param();
    affich_menu_affich_seq();
}

void time_screens()
{
    bench::load(0);
    nb_groupe = 1;
    if (collapsed(0)) toggle_ensemble_display(0);
    while (nb_ens < max_ensembles)
        set_members(add_ensemble(), std::vector{nb_ens});
    for (const auto& [lines, columns] : {std::pair(34, 100), std::pair(200, 160)}) {
        open(lines, columns);
        time_moves("list of 50 ensembles", "", "Down", "Escape", [] { choice_ensemble("Choose:"); });
        time_moves("options", "", "Down", "Escape", choice_config_affiche);
        time_moves("an option's menu", "Enter", "Down", "Escape Escape", choice_config_affiche);
        time_moves("palette", "Down*5 Enter", "Down", "Escape Escape", choice_config_affiche);
        time_moves("a letter moved in the palette", "Down*5 Enter", "A", "Escape Escape",
                   choice_config_affiche);
    }
}

} // namespace
} // namespace kq

int main()
{
    setenv("GRX20DRV", "memory", 1);
    std::filesystem::create_directories(kq::bench::folder());
    kq::dir_DATA = kq::bench::folder();
    for (int size = 0; size < 3; size++)
        kq::time_collapsing(size);
    kq::time_screens();
}
