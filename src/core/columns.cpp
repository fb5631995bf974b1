// model: the hidden columns.
#include "core/columns.h"

#include "core/residues.h"
#include "core/store.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace kq {

constinit unsigned char* delcom = nullptr;
constinit int nb_nuc = 0;

namespace {

constexpr unsigned char sentinel = 1;

int count_hidden(int columns)
{
    return static_cast<int>(std::count(delcom, delcom + columns, column_hidden));
}

} // namespace

bool columns_allocate(int columns)
{
    counts_forget();
    if (!columns_reserve(columns)) return false;
    nb_nuc = 0;
    columns_extend(0, columns);
    return true;
}

bool columns_reserve(int columns)
{
    void* resized = std::realloc(delcom, static_cast<std::size_t>(columns) + 1);
    if (resized) delcom = static_cast<unsigned char*>(resized);
    return resized != nullptr;
}

void columns_extend(int old_columns, int columns)
{
    std::memset(delcom + old_columns, column_shown, static_cast<std::size_t>(columns - old_columns));
    delcom[columns] = sentinel;
    nb_nuc += columns - old_columns;
}

void columns_release()
{
    std::free(delcom);
    delcom = nullptr;
    nb_nuc = 0;
    counts_forget();
}

int recompute_hidden(bool show_all, int position)
{
    const int watched = std::clamp(position + 1, 0, nb_nuc_tot);
    const int before = count_hidden(watched);
    if (show_all) {
        std::memset(delcom, column_shown, static_cast<std::size_t>(nb_nuc_tot));
    } else {
        const auto& counts = column_counts(CountedSet::ensembles);
        const auto all = static_cast<std::uint32_t>(counts.members());
        counts.read([&](auto counters) {
            const auto* gaps = counters.row(code_gap);
            const auto* blanks = counters.row(counts.codes());
            for (int p = 0; p < nb_nuc_tot; p++)
                delcom[p] =
                    static_cast<std::uint32_t>(gaps[p]) + blanks[p] == all ? column_hidden : column_shown;
        });
    }
    delcom[nb_nuc_tot] = sentinel;
    nb_nuc = nb_nuc_tot - count_hidden(nb_nuc_tot);
    return before - count_hidden(watched);
}

} // namespace kq
