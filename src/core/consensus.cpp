// model: the consensus line and the consensus of each ensemble.
#include "core/consensus.h"

#include "core/column_counts.h"
#include "core/consensus_kernel.h"
#include "core/options.h"
#include "core/store.h"

#include <cstdlib>
#include <cstring>

namespace kq {

constinit char ligne_consensus[consensus_line_size] = {};
constinit std::array<char*, 50> seq_cons{};
constinit std::array<unsigned char*, 50> val_seq_cons{};

namespace {

// What ligne_consensus was last computed for: the value of opt_consensus, or 0 when it holds nothing.
constinit int line_option = 0;

// Blanks at level 0 from column `first` on, closed at nb `columns`.
void clear_strings(std::size_t e, int first, int columns)
{
    const auto count = static_cast<std::size_t>(columns - first);
    std::memset(seq_cons[e] + first, ' ', count);
    std::memset(val_seq_cons[e] + first, 0, count);
    seq_cons[e][columns] = 0;
    val_seq_cons[e][columns] = 255;
}

// Reallocates a block that may be null; false, and the old block stays, when memory is refused.
template <typename T>
bool resize_block(T*& block, int bytes)
{
    void* resized = std::realloc(block, static_cast<std::size_t>(bytes));
    if (!resized) return false;
    block = static_cast<T*>(resized);
    return true;
}

// Both strings of a slot exist, or neither does. The name of the string that could not be had, or "".
std::string resize_strings(std::size_t e, int columns)
{
    if (!resize_block(seq_cons[e], columns + 1)) return "seq_cons";
    if (!resize_block(val_seq_cons[e], columns + 1)) return "val_seq_cons";
    return "";
}

void release_strings(std::size_t e)
{
    std::free(seq_cons[e]);
    std::free(val_seq_cons[e]);
    seq_cons[e] = nullptr;
    val_seq_cons[e] = nullptr;
}

} // namespace

std::string consensus_allocate(int ensemble, int columns)
{
    const auto e = static_cast<std::size_t>(ensemble);
    const auto refused = resize_strings(e, columns);
    if (refused.empty()) {
        clear_strings(e, 0, columns);
    } else {
        release_strings(e);
    }
    return refused;
}

bool consensus_reserve(int columns)
{
    for (std::size_t e = 0; e < seq_cons.size(); e++)
        if (seq_cons[e] && !resize_strings(e, columns).empty()) return false;
    return true;
}

void consensus_extend(int old_columns, int columns)
{
    for (std::size_t e = 0; e < seq_cons.size(); e++)
        if (seq_cons[e]) clear_strings(e, old_columns, columns);
}

void consensus_release()
{
    for (std::size_t e = 0; e < seq_cons.size(); e++)
        release_strings(e);
    ligne_consensus[0] = 0;
    line_option = 0;
}

void compute_ligne_consensus()
{
    if (opt_consensus != 2) release_counts(CountedSet::species);
    if (opt_consensus == 0) return;
    const auto set = opt_consensus == 1 ? CountedSet::ensembles : CountedSet::species;
    const auto& counts = column_counts(set);
    auto stale = take_changes(set);
    if (line_option != opt_consensus) stale = {0, nb_nuc_tot};
    mark_columns(counts, stale, ligne_consensus);
    ligne_consensus[nb_nuc_tot] = 0;
    line_option = opt_consensus;
}

void compute_consensus(int ensemble)
{
    const auto e = static_cast<std::size_t>(ensemble);
    if (!collapsed(ensemble) || !seq_cons[e]) return;
    const auto& counts = column_counts(CountedSet::ensemble, ensemble);
    const auto stale = take_changes(CountedSet::ensemble, ensemble);
    consensus_columns(counts, stale, caractere, seq_cons[e], val_seq_cons[e]);
    seq_cons[e][nb_nuc_tot] = 0;
    val_seq_cons[e][nb_nuc_tot] = 255;
}

} // namespace kq
