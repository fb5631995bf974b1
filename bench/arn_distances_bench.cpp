// The distances between nucleic acids beside one look-up for each pair of characters and one formula for each
// pair of sequences. Plain times come from the pairs of some of the species.
#include "analysis/arn_distances.h"
#include "analysis/parameters.h"
#include "bench/evolved_sequences.h"
#include "bench/timing.h"
#include "core/store.h"
#include "raster/grx.h"
#include "screen/window.h"
#include "support/plain_distances.h"

#include <omp.h>

#include <cstdio>
#include <cstdlib>

using namespace kq;
using namespace kq::bench;

namespace {

constexpr int runs = 5, plain_species = 300;

float sink;

double pairs_of(int species)
{
    return 0.5 * species * (species - 1);
}

// ---- plain ------------------------------------------------------------------------------------------------

std::string_view text_of(int species)
{
    const auto text = row(species);
    return {text.data(), text.size()};
}

template <class Work>
void for_plain_pairs(Work work)
{
    for (int i = 0; i < plain_species; i++)
        for (int j = 0; j < i; j++)
            sink += static_cast<float>(work(text_of(i), text_of(j)));
}

void plain_counts()
{
    for_plain_pairs([](auto a, auto b) { return plain::arn_counts(a, b).transitions; });
}

void plain_distances(int type)
{
    for_plain_pairs([=](auto a, auto b) { return plain::arn_distance(a, b, type, alpha); });
}

// ---- ours -------------------------------------------------------------------------------------------------

void counts()
{
    if (!compute_diff_arn()) std::abort();
}

void distances(int type)
{
    type_dist = type;
    if (!compute_dist_arn()) std::abort();
}

// Nanoseconds a pair.
struct Pace {
    double plain, ours;
};

template <class Plain, class Ours>
Pace measure(Plain plain, Ours ours)
{
    const auto times = times_in_turn(runs, plain, ours);
    return {1e9 * median(times.plain) / pairs_of(plain_species),
            1e9 * median(times.ours) / pairs_of(nb_spec)};
}

void beside_plain(const char* name, const Pace& pace)
{
    std::printf("| %s | %.0f ns | %.1f ns | %.0f | %.2f s |\n", name, pace.plain, pace.ours,
                pace.plain / pace.ours, pace.ours * pairs_of(nb_spec) / 1e9);
    std::fflush(stdout);
}

void all_types()
{
    std::puts("\n| type | a pair | times the counts |\n| --- | --- | --- |");
    for (int type = 0; type < arn_distances; type++) {
        const auto times = times_in_turn(runs, counts, [=] { distances(type); });
        std::printf("| %d %.*s | %.1f ns | %.2f |\n", type,
                    static_cast<int>(opt_mat[static_cast<std::size_t>(type)].size()),
                    opt_mat[static_cast<std::size_t>(type)].data(),
                    1e9 * median(times.ours) / pairs_of(nb_spec), median(times.ours) / median(times.plain));
        std::fflush(stdout);
    }
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

} // namespace

int main()
{
    setenv("GRX20DRV", "memory", 1);
    GrMemoryScript("");
    open_window("bench");
    omp_set_num_threads(1);
    const Evolution evolution;
    analyse(evolved_sequences(evolution), evolution.alphabet);
    counts(); // the matrices' memory is there from now on

    std::printf(
        "%d x %d\n\n| | plain, a pair | a pair | ratio | all pairs |\n| --- | --- | --- | --- | --- |\n",
        nb_spec, nb_nuc_tot);
    const auto pace = measure(plain_counts, counts);
    beside_plain("counts", pace);
    std::printf("(%.1f thousand million pairs of characters a second)\n", nb_nuc_tot / pace.ours);
    beside_plain("counts and type 8", measure([] { plain_distances(8); },
                                              [] {
                                                  counts();
                                                  distances(8);
                                              }));
    beside_plain("type 12", measure([] { plain_distances(12); }, [] { distances(12); }));
    all_types();
    std::puts("\n| | one thread | two threads | ratio |\n| --- | --- | --- | --- |");
    on_two_threads("counts", counts);
    on_two_threads("type 8", [] { distances(8); });
    on_two_threads("type 12", [] { distances(12); });
    return sink == 0;
}
