// The distances between nucleic acids beside one look-up for each pair of characters and one formula for each
// pair of sequences.
#include "analysis/arn_distances.h"
#include "analysis/pair_counts.h"
#include "analysis/parameters.h"
#include "bench/distances_timing.h"
#include "bench/evolved_sequences.h"
#include "support/plain_distances.h"

#include <utility>
#include <vector>

using namespace kq;
using namespace kq::bench;

namespace {

// ---- plain ------------------------------------------------------------------------------------------------

// What a pair of characters is, by both of them: 0 not compared, 1 identical, 2 .. 5 the kinds of
// differences.
std::vector<unsigned char> kinds_of_pairs()
{
    std::vector<unsigned char> kinds;
    for (int k = 0; k < 256 * 256; k++) {
        const char a = static_cast<char>(k / 256), b = static_cast<char>(k % 256);
        const auto counts = plain::arn_counts({&a, 1}, {&b, 1});
        kinds.push_back(static_cast<unsigned char>(counts.compared + counts.transitions +
                                                   2 * counts.transversions + 3 * counts.deletions +
                                                   4 * counts.others));
    }
    return kinds;
}

// The fastest of the plain ways.
plain::PairCounts look_up(std::string_view a, std::string_view b)
{
    static const auto kinds = kinds_of_pairs();
    int counts[6]{};
    for (std::size_t p = 0; p < a.size(); p++)
        counts[kinds[256 * static_cast<unsigned char>(a[p]) + static_cast<unsigned char>(b[p])]]++;
    return {.transitions = counts[2],
            .transversions = counts[3],
            .deletions = counts[4],
            .others = counts[5],
            .compared = static_cast<int>(a.size()) - counts[0]};
}

void look_up_counts(int species)
{
    for_plain_pairs(species, [](auto a, auto b) { return look_up(a, b).transitions; });
}

void look_up_kimura(int species)
{
    for_plain_pairs(species, [](auto a, auto b) { return plain::arn_distance(look_up(a, b), 8, alpha); });
}

void plain_counts(int species)
{
    for_plain_pairs(species, [](auto a, auto b) { return plain::arn_counts(a, b).transitions; });
}

template <int type>
void plain_distances(int species)
{
    for_plain_pairs(species, [](auto a, auto b) { return plain::arn_distance(a, b, type, alpha); });
}

// ---- ours -------------------------------------------------------------------------------------------------

void counts()
{
    if (!compute_diff_arn()) std::abort();
}

template <int type>
void distances()
{
    type_dist = type;
    if (!compute_dist_arn()) std::abort();
}

void counts_and_kimura()
{
    counts();
    distances<8>();
}

// ---- the tables -------------------------------------------------------------------------------------------

void tables_beside_plain()
{
    head_beside_plain();
    beside_plain("counts, looked up", 300, look_up_counts, counts);
    beside_plain("counts, case by case", 300, plain_counts, counts);
    beside_plain("counts and type 8, looked up", 300, look_up_kimura, counts_and_kimura);
    beside_plain("counts and type 8, case by case", 300, plain_distances<8>, counts_and_kimura);
    beside_plain("type 12", 300, plain_distances<12>, distances<12>);
    beside_plain("type 9", 30, plain_distances<9>, distances<9>);
    beside_plain("type 10", 5, plain_distances<10>, distances<10>);
}

// The counting alone, without the matrices.
void table_of_instructions()
{
    constexpr int species = 500;
    BasePlanes planes(species, nb_nuc_tot);
    for (int i = 0; i < species; i++)
        planes.set(i, row(i), car_inconnu);
    std::puts("\n| instructions | counts, a pair | pairs of characters a second | composition, a pair |\n"
              "| --- | --- | --- | --- |");
    for (const auto instructions : usable_instructions()) {
        const auto count_all = [&]<class Counts>(std::vector<Counts> counts) {
            for (int i = 1; i < species; i++)
                count_pairs(planes, i, 0, std::span(counts).first(static_cast<std::size_t>(i)), instructions);
            sink += static_cast<float>(counts[0].transversions);
        };
        const auto times = times_in_turn(
            runs * 10, [&] { count_all(std::vector<PairCounts>(species)); },
            [&] { count_all(std::vector<CompositionCounts>(species)); });
        const double pair = 1e9 * median(times.plain) / pairs_of(species);
        std::printf("| %s | %.1f ns | %.1f thousand million | %.1f ns |\n",
                    names_of_instructions[static_cast<int>(instructions)], pair, nb_nuc_tot / pair,
                    1e9 * median(times.ours) / pairs_of(species));
        std::fflush(stdout);
    }
}

template <int... types>
void beside_counts(std::integer_sequence<int, types...>)
{
    void (*const fill[])() = {distances<types>...};
    std::puts("\n| type | a pair | times the counts |\n| --- | --- | --- |");
    for (const int type : {types...}) {
        const auto times = times_in_turn(type == 9 || type == 10 ? 1 : runs, counts, fill[type]);
        const auto name = opt_mat[static_cast<std::size_t>(type)];
        std::printf("| %d %.*s | %.1f ns | %.2f |\n", type, static_cast<int>(name.size()), name.data(),
                    1e9 * median(times.ours) / pairs_of(nb_spec), median(times.ours) / median(times.plain));
        std::fflush(stdout);
    }
}

} // namespace

int main()
{
    open_bench();
    const Evolution evolution;
    analyse(evolved_sequences(evolution), evolution.alphabet);
    counts(); // the matrices' memory is there from now on

    tables_beside_plain();
    table_of_instructions();
    beside_counts(std::make_integer_sequence<int, arn_distances>());
    head_on_two_threads();
    on_two_threads("counts", counts);
    on_two_threads("type 8", distances<8>);
    on_two_threads("type 12", distances<12>);
    return sink == 0;
}
