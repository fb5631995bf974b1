#include "bench/loaded_alignment.h"

#include "core/columns.h"
#include "core/consensus.h"
#include "core/edit.h"
#include "core/lifecycle.h"
#include "core/options.h"
#include "core/store.h"

#include <benchmark/benchmark.h>

#include <cstdint>
#include <numeric>
#include <string>

namespace kq::bench {

namespace {

// xorshift64*: the rows of the largest alignment are 300 million characters.
class Random {
public:
    std::uint32_t operator()()
    {
        state_ ^= state_ >> 12;
        state_ ^= state_ << 25;
        state_ ^= state_ >> 27;
        return static_cast<std::uint32_t>((state_ * 0x2545F4914F6CDD1DULL) >> 32);
    }
    int below(int n)
    {
        return static_cast<int>((std::uint64_t{(*this)()} * static_cast<std::uint64_t>(n)) >> 32);
    }

private:
    std::uint64_t state_ = 88172645463325252ULL;
};

// A sixth of the residues differ from the ancestor's, one run in forty is a deletion.
void derive(std::string& text, const std::string& ancestor, Random& random)
{
    const int columns = static_cast<int>(ancestor.size());
    text = ancestor;
    for (int p = 0; p < columns;) {
        const int run = 1 + random.below(11);
        if (random.below(40) == 0) {
            for (int j = p; j < std::min(columns, p + run); j++)
                text[static_cast<std::size_t>(j)] = '*';
        } else {
            text[static_cast<std::size_t>(p)] = "ACGTN"[random.below(5)];
        }
        p += run;
    }
    for (int end = columns - 1 - random.below(columns / 20), p = end; p < columns; p++)
        text[static_cast<std::size_t>(p)] = ' ';
}

void make_rows(const Size& size)
{
    Random random;
    std::string ancestor, text;
    for (int p = 0; p < size.columns; p++)
        ancestor += random.below(8) ? "ACGU"[random.below(4)] : '*';
    for (int i = 0; i < size.species; i++) {
        derive(text, ancestor, random);
        store_put(i, "Species " + std::to_string(i), text, false, false);
    }
}

} // namespace

void load(int i)
{
    static int loaded = -1;
    if (loaded == i) return;
    loaded = i;
    const auto& size = sizes[i];
    alignment_reset();
    store_allocate();
    store_begin(size.species, size.columns);
    make_rows(size);
    columns_allocate(size.columns);
    consensus_allocate(0, size.columns);
    reset_ensembles();
    set_caractere();

    std::vector<int> rows(static_cast<std::size_t>(size.species));
    std::iota(rows.begin(), rows.end(), 0);
    const auto half = rows.size() / 2;
    set_members(0, std::span(rows).first(half));
    set_members(add_ensemble(), std::span(rows).subspan(half));
    set_members(add_ensemble(), std::span(rows).first(10));
    set_collapsed(0, true);
    set_collapsed(1, true);
    opt_consensus = 1;
    recompute();
}

void recompute()
{
    for (int e = 0; e < nb_ens; e++)
        compute_consensus(e);
    recompute_hidden(false, 0);
    compute_ligne_consensus();
}

plain::Texts texts_of_ensemble(int ensemble)
{
    plain::Texts texts;
    for (const int species : members(ensemble)) {
        const auto text = row(species);
        texts.emplace_back(text.data(), text.size());
    }
    return texts;
}

void recompute_plainly()
{
    plain::Texts all;
    for (int e = 0; e < nb_ens; e++) {
        const auto texts = texts_of_ensemble(e);
        all.insert(all.end(), texts.begin(), texts.end());
        if (collapsed(e))
            benchmark::DoNotOptimize(plain::ensemble_consensus(texts, nb_nuc_tot, type_seq, caractere));
    }
    benchmark::DoNotOptimize(plain::hidden_columns(all, nb_nuc_tot));
    benchmark::DoNotOptimize(plain::consensus_line(all, nb_nuc_tot, type_seq));
}

} // namespace kq::bench
