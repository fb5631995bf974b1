// What the benchmarks of the distances share: times of one pair, plain beside ours, and one thread beside
// two.
#pragma once

#include "bench/timing.h"
#include "core/store.h"
#include "raster/grx.h"
#include "screen/window.h"

#include <omp.h>

#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace kq::bench {

inline constexpr int runs = 5;
inline float sink; // of results that nobody reads

// By Instructions.
inline constexpr const char* names_of_instructions[] = {"baseline", "AVX2", "AVX-512"};

inline double pairs_of(int species)
{
    return 0.5 * species * (species - 1);
}

inline std::string_view text_of(int species)
{
    const auto text = row(species);
    return {text.data(), text.size()};
}

// Adds up work(text, text) over the pairs of the first species.
template <class Work>
void for_plain_pairs(int species, Work work)
{
    for (int i = 0; i < species; i++)
        for (int j = 0; j < i; j++)
            sink += static_cast<float>(work(text_of(i), text_of(j)));
}

inline void head_beside_plain()
{
    std::printf("\n| %d x %d, one thread | plain, a pair | a pair | ratio | all pairs |\n"
                "| --- | --- | --- | --- | --- |\n",
                nb_spec, nb_nuc_tot);
}

// plain(plain_species) takes the pairs of the first species only, ours() takes all.
template <class Plain, class Ours>
void beside_plain(const char* name, int plain_species, Plain plain, Ours ours)
{
    const auto times = times_in_turn(
        plain_species < 100 ? 1 : runs, [&] { plain(plain_species); }, ours);
    const double plain_pair = 1e9 * median(times.plain) / pairs_of(plain_species);
    const double our_pair = 1e9 * median(times.ours) / pairs_of(nb_spec);
    std::printf("| %s | %.0f ns | %.1f ns | %.0f | %.2f s |\n", name, plain_pair, our_pair,
                plain_pair / our_pair, median(times.ours));
    std::fflush(stdout);
}

inline void head_on_two_threads()
{
    std::puts("\n| | one thread | two threads | ratio |\n| --- | --- | --- | --- |");
}

template <class Work>
void on_two_threads(const char* name, Work work)
{
    const auto on = [&](int threads) {
        return [&work, threads] {
            omp_set_num_threads(threads);
            work();
        };
    };
    const auto times = times_in_turn(runs, on(1), on(2));
    omp_set_num_threads(1);
    std::printf("| %s | %.2f s | %.2f s | %.2f |\n", name, median(times.plain), median(times.ours),
                median(times.plain) / median(times.ours));
    std::fflush(stdout);
}

// A window for the progress boxes, and one thread.
inline void open_bench()
{
    setenv("GRX20DRV", "memory", 1);
    GrMemoryScript("");
    open_window("bench");
    omp_set_num_threads(1);
}

} // namespace kq::bench
