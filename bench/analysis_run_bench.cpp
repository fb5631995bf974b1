// The automatic analysis from the key to the last file, and its removal of positions beside a plain one.
#include "analysis/analysed.h"
#include "analysis/analysis_run.h"
#include "analysis/distance_matrix.h"
#include "analysis/gap_count.h"
#include "analysis/parameters.h"
#include "analysis/position_removal.h"
#include "bench/evolved_sequences.h"
#include "bench/timing.h"
#include "core/edit.h"
#include "core/store.h"
#include "raster/grx.h"
#include "screen/window.h"

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>

using namespace kq;
using namespace kq::bench;

namespace {

// All rows in ensembles of at most so many species.
void load(Size size)
{
    const Evolution evolution{.species = size.species, .columns = size.columns};
    analyse(evolved_sequences(evolution), Alphabet::nucleic);
    libere_memoire_dist();
    reset_ensembles();
    for (int first = 0; first < nb_spec; first += max_ensemble_species) {
        std::vector<int> list;
        for (int s = first; s < std::min(nb_spec, first + max_ensemble_species); s++)
            list.push_back(s);
        set_members(first == 0 ? 0 : add_ensemble(), list);
    }
    file_ALI = "bench.ali";
}

// Position by position, as the removal is defined.
int kept_plainly()
{
    int kept = 0;
    for (int p = 0; p < nb_nuc_tot; p++) {
        int gaps = 0;
        for (const int species : analysed_species())
            gaps += counts_as_gap(residue(species, p));
        kept += gaps * 100 / nb_spec_auto <= percent_gap;
    }
    return kept;
}

void measure_removal(Size size)
{
    load(size);
    elimine_pos_gap();
    if (kept_plainly() != nb_nuc_keep) std::abort();
    const auto [plain, ours] = times_in_turn(5, kept_plainly, elimine_pos_gap);
    std::printf("| %d x %d | %.3f s | %.3f s | %.0f |\n", size.species, size.columns, median(plain),
                median(ours), median(plain) / median(ours));
    std::fflush(stdout);
}

// In a process of its own, for its peak of memory.
void measure_run(Size size, int level)
{
    std::fflush(stdout);
    const pid_t child = fork();
    if (child != 0) {
        waitpid(child, nullptr, 0);
        return;
    }
    load(size);
    rusage before{}, after{};
    getrusage(RUSAGE_SELF, &before);
    const double taken = seconds([&] {
        GrMemoryScript("BackSpace " + std::to_string(level) + " Enter*3");
        tout_auto();
    });
    getrusage(RUSAGE_SELF, &after);
    std::uintmax_t bytes = 0;
    for (const auto& entry : std::filesystem::directory_iterator("."))
        bytes += entry.file_size();
    std::printf("| %d x %d | %d | %.1f s | %.0f MB | %.0f MB | %.0f MB |\n", size.species, size.columns,
                level, taken, static_cast<double>(bytes) / 1e6,
                static_cast<double>(after.ru_maxrss - before.ru_maxrss) * 1024 / 1e6,
                static_cast<double>(bytes_of_matrices(size.species, 0)) / 1e6);
    std::fflush(stdout);
    _exit(0);
}

} // namespace

int main()
{
    setenv("GRX20DRV", "memory", 1);
    GrMemoryScript("");
    open_window("bench");
    std::puts("| | plain removal | removal | ratio |\n| --- | --- | --- | --- |");
    for (const Size size : sizes)
        measure_removal(size);

    const std::string directory = folder() + "run";
    std::filesystem::create_directories(directory);
    std::filesystem::current_path(directory);
    std::puts("\n| | level | everything | files | memory at the peak | of it matrices |");
    std::puts("| --- | --- | --- | --- | --- | --- |");
    measure_run({1000, 1500}, 3);
    measure_run({5000, 1500}, 1);
    measure_run({5000, 1500}, 3);
    measure_run({20000, 1500}, 1);
    std::filesystem::remove_all(directory);
}
