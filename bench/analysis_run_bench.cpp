// The automatic analysis from the key to the last file, and its removal of positions beside a plain one.
#include "analysis/analysed.h"
#include "analysis/analysis_run.h"
#include "analysis/distance_matrix.h"
#include "analysis/gap_count.h"
#include "analysis/parameters.h"
#include "analysis/position_removal.h"
#include "analysis/progress.h"
#include "bench/evolved_sequences.h"
#include "bench/timing.h"
#include "core/edit.h"
#include "core/store.h"
#include "raster/grx.h"
#include "screen/window.h"

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <vector>

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

using Clock = std::chrono::steady_clock;

double since(Clock::time_point start)
{
    return std::chrono::duration<double>(Clock::now() - start).count();
}

// In a process of its own; where a warning stops the run, this ends.
void run(int level)
{
    GrMemoryScript("BackSpace " + std::to_string(level) + " Enter*3");
    try {
        tout_auto();
    } catch (const EndOfScript&) {
        std::puts("| not run: too little memory or room on the disk |");
        std::fflush(stdout);
        _exit(1);
    }
}

// When ESCAPE is looked for during a run, and how soon the run is over when it is found at some of these
// moments. The first run is undisturbed.
struct Looks {
    double longest_gap = 0, latest_end = 0;
    Looks(int level, int stops)
    {
        std::vector<double> times;
        const auto start = Clock::now();
        set_escape([&] {
            times.push_back(since(start));
            return false;
        });
        run(level);
        for (std::size_t i = 1; i < times.size(); i++)
            longest_gap = std::max(longest_gap, times[i] - times[i - 1]);
        for (int stop = 1; stop <= stops; stop++) {
            auto left = times.size() * static_cast<std::size_t>(stop) / (static_cast<std::size_t>(stops) + 1);
            auto pressed = Clock::now();
            set_escape([&] {
                if (left-- > 0) return false;
                pressed = Clock::now();
                return true;
            });
            run(level);
            latest_end = std::max(latest_end, since(pressed));
        }
        set_escape(nullptr);
    }
};

// In a process of its own, for its peak of memory.
void measure_run(Size size, int level, int stops)
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
    const double taken = seconds([&] { run(level); });
    getrusage(RUSAGE_SELF, &after);
    std::uintmax_t bytes = 0;
    for (const auto& entry : std::filesystem::directory_iterator("."))
        bytes += entry.file_size();
    const Looks looks(level, stops);
    std::printf("| %d x %d | %d | %.1f s | %.0f MB | %.0f MB | %.0f MB | %.0f ms | %.0f ms |\n", size.species,
                size.columns, level, taken, static_cast<double>(bytes) / 1e6,
                static_cast<double>(after.ru_maxrss - before.ru_maxrss) * 1024 / 1e6,
                static_cast<double>(bytes_of_matrices(size.species, 0)) / 1e6, 1000 * looks.longest_gap,
                1000 * looks.latest_end);
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
    std::puts(
        "\n| | level | everything | files | memory at the peak | of it matrices | longest without a look | "
        "latest end after ESCAPE |");
    std::puts("| --- | --- | --- | --- | --- | --- | --- | --- |");
    measure_run({1000, 1500}, 3, 10);
    measure_run({5000, 1500}, 1, 10);
    measure_run({5000, 1500}, 3, 10);
    measure_run({20000, 1500}, 1, 4);
    std::filesystem::remove_all(directory);
}
