#include "bench/evolved_sequences.h"

#include "analysis/analysed.h"
#include "analysis/distance_matrix.h"
#include "analysis/parameters.h"
#include "bench/timing.h"
#include "core/lifecycle.h"
#include "core/store.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <random>
#include <string_view>

namespace kq::bench {

namespace {

using Groups = std::vector<std::string_view>; // of similar residues
const Groups nucleic_groups = {"AG", "CT"};
const Groups protein_groups = {"AGPST", "C", "DENQ", "FWY", "HKR", "ILMV"};
constexpr double mean_deletion = 3; // positions

class Evolver {
public:
    explicit Evolver(const Evolution& evolution)
        : evolution_(evolution)
        , random_(evolution.seed)
        , groups_(evolution.alphabet == Alphabet::nucleic ? nucleic_groups : protein_groups)
        , stay_in_group_(evolution.alphabet == Alphabet::nucleic ? 2.0 / 3 : 0.5)
    {
        for (const auto group : groups_)
            letters_ += group;
        // A position is drawn for a substitution once for each time that it stands here.
        for (int p = 0; p < evolution.columns; p++)
            sites_.insert(sites_.end(), std::size_t{1} << below(4), p);
    }

    std::vector<std::string> evolve()
    {
        const auto species = static_cast<std::size_t>(evolution_.species);
        std::vector<std::string> tips(1, ancestor());
        tips.reserve(species);
        // A species is about 2 ln(n) splits away from the root.
        const double branch = 1 / (2 * std::log(std::max(2.0, evolution_.species * 1.0)));
        while (tips.size() < species) {
            const auto parent = below(tips.size());
            tips.push_back(tips[parent]);
            evolve_along(tips.back(), branch);
            evolve_along(tips[parent], branch);
        }
        for (auto& row : tips)
            lose_residues(row);
        std::shuffle(tips.begin(), tips.end(), random_);
        return tips;
    }

private:
    std::size_t below(std::size_t n) { return std::uniform_int_distribution<std::size_t>(0, n - 1)(random_); }
    bool happens(double probability) { return std::bernoulli_distribution(probability)(random_); }
    int occurrences(double expected)
    {
        return expected > 0 ? std::poisson_distribution<int>(expected)(random_) : 0;
    }

    std::string ancestor()
    {
        std::string row;
        for (int p = 0; p < evolution_.columns; p++)
            row += letters_[below(letters_.size())];
        return row;
    }

    char substitute(char residue)
    {
        const auto group =
            *std::find_if(groups_.begin(), groups_.end(), [&](auto g) { return g.find(residue) != g.npos; });
        const bool stay = group.size() > 1 && happens(stay_in_group_);
        for (;;) {
            const char other = stay ? group[below(group.size())] : letters_[below(letters_.size())];
            if (other != residue && (stay || group.find(other) == group.npos)) return other;
        }
    }

    void evolve_along(std::string& row, double mean_branch)
    {
        const double length = mean_branch * std::exponential_distribution<double>()(random_);
        const double columns = evolution_.columns;
        for (int k = occurrences(length * evolution_.depth * columns); k > 0; k--) {
            char& residue = row[static_cast<std::size_t>(sites_[below(sites_.size())])];
            if (residue != '-') residue = substitute(residue);
        }
        for (int k = occurrences(length * evolution_.gaps * columns / mean_deletion); k > 0; k--) {
            const auto first = below(row.size());
            const auto run =
                1 + static_cast<std::size_t>(std::geometric_distribution<int>(1 / mean_deletion)(random_));
            std::fill_n(row.begin() + static_cast<std::ptrdiff_t>(first), std::min(run, row.size() - first),
                        '-');
        }
    }

    void lose_residues(std::string& row)
    {
        const char unknown = evolution_.alphabet == Alphabet::nucleic ? 'N' : 'X';
        const auto columns = row.size();
        if (happens(0.25)) std::fill_n(row.begin(), below(columns / 20 + 1), unknown);
        if (happens(0.25)) std::fill_n(row.rbegin(), below(columns / 20 + 1), ' ');
        for (int k = occurrences(static_cast<double>(columns) / 1000); k > 0; k--)
            row[below(columns)] = unknown;
    }

    const Evolution evolution_;
    std::mt19937_64 random_;
    const Groups& groups_;
    const double stay_in_group_;
    std::string letters_;
    std::vector<int> sites_;
};

} // namespace

std::vector<std::string> evolved_sequences(const Evolution& evolution)
{
    return Evolver(evolution).evolve();
}

namespace {

void load_rows(std::span<const std::string> rows, Alphabet alphabet)
{
    alignment_reset();
    store_allocate();
    store_begin(static_cast<int>(rows.size()), rows.empty() ? 0 : static_cast<int>(rows[0].size()));
    for (int i = 0; i < nb_spec; i++)
        store_put(i, species_name(i), rows[static_cast<std::size_t>(i)], false, false);
    type_seq = alphabet == Alphabet::nucleic ? 0 : 1;
}

} // namespace

void load_evolved(const Evolution& evolution)
{
    load_rows(evolved_sequences(evolution), evolution.alphabet);
}

void analyse(std::span<const std::string> rows, Alphabet alphabet)
{
    libere_memoire_dist();
    load_rows(rows, alphabet);
    nb_spec_auto = nb_spec;
    std::iota(cor_auto.begin(), cor_auto.begin() + nb_spec, 0);
    retain.assign(static_cast<std::size_t>(nb_nuc_tot), position_kept);
    retain.push_back(end_of_positions);
    nb_nuc_keep = nb_nuc_tot;
    name_distances(type_seq);
    alloue_memoire_dist();
}

} // namespace kq::bench
