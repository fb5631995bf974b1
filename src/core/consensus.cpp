// model: the consensus line and the consensus of each ensemble.
#include "core/consensus.h"

#include "core/columns.h"
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

constexpr int most_codes = 25;

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

std::span<const std::uint32_t> gather(const ColumnCounts& counts, int column,
                                      std::array<std::uint32_t, most_codes>& codes)
{
    for (int code = 0; code < counts.codes; code++)
        codes[static_cast<std::size_t>(code)] = counts.count(code, column);
    return std::span(codes).first(static_cast<std::size_t>(counts.codes));
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
}

void compute_ligne_consensus()
{
    if (opt_consensus == 0) return;
    const auto& counts = column_counts(opt_consensus == 1 ? CountedSet::ensembles : CountedSet::species);
    std::array<std::uint32_t, most_codes> codes{};
    for (int p = 0; p < nb_nuc_tot; p++)
        ligne_consensus[p] =
            consensus_mark(gather(counts, p, codes), static_cast<std::uint32_t>(counts.members));
    ligne_consensus[nb_nuc_tot] = 0;
}

void compute_consensus(int ensemble)
{
    const auto e = static_cast<std::size_t>(ensemble);
    if (!collapsed(ensemble) || !seq_cons[e]) return;
    const auto& counts = column_counts(CountedSet::ensemble, ensemble);
    std::array<std::uint32_t, most_codes> codes{};
    for (int p = 0; p < nb_nuc_tot; p++) {
        const auto found = column_consensus(gather(counts, p, codes), counts.blank(p),
                                            static_cast<std::uint32_t>(counts.members), caractere);
        seq_cons[e][p] = found.character;
        val_seq_cons[e][p] = found.level;
    }
    seq_cons[e][nb_nuc_tot] = 0;
    val_seq_cons[e][nb_nuc_tot] = 255;
}

} // namespace kq
