// The distances between proteins beside one look-up for each pair of characters and one formula for each pair
// of sequences.
#include "analysis/parameters.h"
#include "analysis/prot_counts.h"
#include "analysis/prot_distances.h"
#include "analysis/weight_matrix.h"
#include "bench/distances_timing.h"
#include "bench/evolved_sequences.h"
#include "screen/directories.h"
#include "support/plain_distances.h"

#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <vector>

using namespace kq;
using namespace kq::bench;

namespace {

void distances(int type)
{
    type_dist = type;
    if (!compute_dist_prot()) std::abort();
}

// What a pair of characters is, by both of them.
struct Kind {
    bool compared, gap;
    double weight;
};

// The fastest of the plain ways.
class LookUp {
public:
    explicit LookUp(const ProtWeights& weights)
    {
        for (int k = 0; k < 256 * 256; k++) {
            const char a = static_cast<char>(k / 256), b = static_cast<char>(k % 256);
            const auto counts = plain::prot_counts({&a, 1}, {&b, 1}, weights);
            kinds_.push_back({counts.compared == 1, counts.gaps == 1, counts.weights});
        }
    }
    plain::ResidueCounts operator()(std::string_view a, std::string_view b) const
    {
        plain::ResidueCounts counts;
        for (std::size_t p = 0; p < a.size(); p++) {
            const Kind& kind =
                kinds_[256 * static_cast<unsigned char>(a[p]) + static_cast<unsigned char>(b[p])];
            counts.compared += kind.compared;
            counts.gaps += kind.gap;
            counts.weights = static_cast<float>(static_cast<double>(counts.weights) + kind.weight);
        }
        return counts;
    }

private:
    std::vector<Kind> kinds_;
};

ProtWeights weights_of(int type)
{
    return read_weight_matrix(shipped_file(weight_matrix_name(type))).weights;
}

std::string name_of(int type)
{
    return std::to_string(type) + " " + std::string(opt_mat[static_cast<std::size_t>(type)]);
}

void beside_look_up(int type)
{
    const LookUp look_up(weights_of(type));
    const auto plain = [&](int species) {
        for_plain_pairs(species,
                        [&](auto a, auto b) { return plain::prot_distance(look_up(a, b), type, alpha); });
    };
    beside_plain((name_of(type) + ", looked up").c_str(), 200, plain, [=] { distances(type); });
}

void beside_cases(int type)
{
    const auto weights = weights_of(type);
    const auto plain = [&](int species) {
        for_plain_pairs(species,
                        [&](auto a, auto b) { return plain::prot_distance(a, b, type, alpha, weights); });
    };
    const int species = type == 6 ? 50 : 200; // a series is slow
    beside_plain((name_of(type) + ", case by case").c_str(), species, plain, [=] { distances(type); });
}

// The counting alone, without the matrix.
void table_of_instructions()
{
    constexpr int species = 500, types[] = {0, 2, 3};
    std::puts("\n| instructions | type 0, a pair | type 2 | type 3 |\n| --- | --- | --- | --- |");
    for (const auto instructions : usable_instructions()) {
        std::printf("| %s ", names_of_instructions[static_cast<int>(instructions)]);
        for (const int type : types) {
            ComparedProteins proteins(species, nb_nuc_tot, weights_of(type), car_inconnu);
            for (int i = 0; i < species; i++)
                proteins.set(i, row(i));
            std::vector<ProtCounts> counts(species);
            const auto count_all = [&] {
                for (int i = 1; i < species; i++)
                    proteins.count(i, 0, std::span(counts).first(static_cast<std::size_t>(i)), instructions);
                sink += counts[0].weights;
            };
            std::vector<double> times;
            for (int run = 0; run < runs * 10; run++)
                times.push_back(seconds(count_all));
            std::printf("| %.1f ns ", 1e9 * median(times) / pairs_of(species));
        }
        std::puts("|");
    }
}

// Weights that have to be added up in their order.
void write_fractions(const std::string& path)
{
    std::mt19937 random(1);
    std::ofstream file(path);
    for (int k = 0; k < 400; k++)
        file << static_cast<double>(random() % 1000) / 1000 << '\n';
}

} // namespace

int main()
{
    open_bench();
    const Evolution evolution{.alphabet = Alphabet::protein};
    analyse(evolved_sequences(evolution), evolution.alphabet);
    dir_ZOLTEXE = KQ_DEMO_DIRECTORY "/ZOLTEXE/zoltexe/";
    distances(0); // the matrix's memory is there from now on

    head_beside_plain();
    for (int type = 0; type < prot_distances; type++)
        if (type != 6) beside_look_up(type);
    beside_cases(0);
    beside_cases(6);
    table_of_instructions();
    head_on_two_threads();
    on_two_threads("type 0", [] { distances(0); });
    on_two_threads("type 7", [] { distances(7); });

    std::puts("\nWeights with decimals:");
    analyse(evolved_sequences({.alphabet = Alphabet::protein, .species = 1500}), Alphabet::protein);
    std::filesystem::create_directories(folder());
    dir_ZOLTEXE = folder();
    write_fractions(folder() + weight_matrix_name(0));
    head_beside_plain();
    beside_look_up(0);
    beside_cases(0);
    head_on_two_threads();
    on_two_threads("type 0", [] { distances(0); });
    return sink == 0;
}
