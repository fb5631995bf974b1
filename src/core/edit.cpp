// model: the edit door: characters and alignment length.
#include "core/edit.h"

#include "core/column_upkeep.h"
#include "core/columns.h"
#include "core/consensus.h"
#include "core/residues.h"
#include "core/store.h"

#include <algorithm>
#include <cassert>
#include <cstring>
#include <vector>

namespace kq {

namespace {

int length_of(int species)
{
    return row_length[static_cast<std::size_t>(species)];
}

// The longest text that a row can have: its NUL is in the stride, and a saved line can be read back.
int longest_text()
{
    return std::min(lenseq_tot - 1, max_alignment);
}

void set_length(int species, int length)
{
    row_length[static_cast<std::size_t>(species)] = length;
    row_storage(species)[length] = 0;
}

void fill(int species, int first, int last, char c)
{
    if (first < last) std::memset(row_storage(species) + first, c, static_cast<std::size_t>(last - first));
}

void move_text(int species, int to, int from, int count)
{
    char* text = row_storage(species);
    if (count > 0) std::memmove(text + to, text + from, static_cast<std::size_t>(count));
}

// Blanks at the end of a row whose text is shorter than `length`.
void fill_up(int species, int length)
{
    if (length_of(species) >= length) return;
    fill(species, length_of(species), length, ' ');
    set_length(species, length);
}

// How many blanks and "*" stand at the end of the columns [first, last) of a row.
int trailing_gaps(int species, int first, int last)
{
    int p = last;
    while (p > first && is_editable_gap(residue(species, p - 1)))
        p--;
    return last - p;
}

// The length of a row's text after n gap characters have gone in at p.
int length_after_insertion(int species, int p, int n)
{
    const int length = std::max(length_of(species), nb_nuc_tot);
    const int first = std::max(p, length - n);
    const int gaps = trailing_gaps(species, first, length);
    // When only gaps stand from p on, the new ones reach the end and are dropped with them.
    return gaps == length - p ? length : length + n - gaps;
}

void insert_into_row(int species, int p, int n, char c, int new_length)
{
    fill_up(species, nb_nuc_tot);
    move_text(species, p + n, p, new_length - p - n);
    fill(species, p, std::min(p + n, new_length), c);
    set_length(species, new_length);
}

void delete_from_row(int species, int p, int n)
{
    fill_up(species, nb_nuc_tot);
    const int length = length_of(species);
    const int new_length = std::max(nb_nuc_tot, length - n);
    move_text(species, p, p + n, length - p - n);
    fill(species, length - n, new_length, ' ');
    set_length(species, new_length);
}

// Runs change(i) for each row of a command, in parallel where rows are counted through their ensemble only.
template <typename Change>
void change_rows(const Rows& rows, int first, Change change)
{
    const auto species = rows.species();
    std::vector<std::size_t> counted_apart;
    for (std::size_t i = 0; i < species.size(); i++)
        if (row_is_counted(species[i], rows.ensemble())) counted_apart.push_back(i);
    for (const auto i : counted_apart) {
        const RowChange watch(species[i], first, nb_nuc_tot, rows.ensemble());
        change(i);
    }
    if (counted_apart.size() == species.size()) return;
#pragma omp parallel for schedule(static) if (species.size() > 100)
    for (std::size_t i = 0; i < species.size(); i++)
        if (!std::ranges::binary_search(counted_apart, i)) change(i);
}

} // namespace

std::span<const int> Rows::species() const
{
    if (ensemble_ >= 0) return members(ensemble_);
    return std::span(&species_, species_ < 0 ? 0 : 1);
}

// ---- characters

bool insert_chars(const Rows& rows, int p, int n, char c)
{
    assert(p >= 0 && p < nb_nuc_tot && n >= 0 && is_editable_gap(c));
    const auto species = rows.species();
    std::vector<int> lengths(species.size());
    for (std::size_t i = 0; i < species.size(); i++) {
        lengths[i] = length_after_insertion(species[i], p, n);
        if (lengths[i] > nb_nuc_tot && lengths[i] > longest_text()) return false;
    }
    EnsembleChange counts(rows.ensemble(), p);
    change_rows(rows, p, [&](std::size_t i) { insert_into_row(species[i], p, n, c, lengths[i]); });
    counts.inserted(n, c);
    return true;
}

int free_columns_at_end(const Rows& rows)
{
    int free_columns = nb_nuc_tot;
    for (const int species : rows.species())
        free_columns = trailing_gaps(species, nb_nuc_tot - free_columns, nb_nuc_tot);
    return free_columns;
}

void delete_chars(const Rows& rows, int p, int n)
{
    assert(p >= 0 && p < nb_nuc_tot && n >= 0);
    n = std::min(n, nb_nuc_tot - p);
    const auto species = rows.species();
    EnsembleChange counts(rows.ensemble(), p);
    change_rows(rows, p, [&](std::size_t i) { delete_from_row(species[i], p, n); });
    counts.erased(n);
}

bool all_editable_gaps(const Rows& rows, int p)
{
    return std::ranges::all_of(rows.species(),
                               [p](int species) { return is_editable_gap(residue(species, p)); });
}

void overwrite(int species, int p, std::string_view text)
{
    assert(p >= 0 && p + std::ssize(text) <= nb_nuc_tot);
    const RowChange watch(species, p, p + static_cast<int>(text.size()));
    fill_up(species, nb_nuc_tot);
    std::memcpy(row_storage(species) + p, text.data(), text.size());
}

void replace_text(int species, std::string_view text)
{
    assert(std::ssize(text) < lenseq_tot);
    const RowChange watch(species, 0, nb_nuc_tot);
    std::memcpy(row_storage(species), text.data(), text.size());
    set_length(species, static_cast<int>(text.size()));
}

void rewrite_columns(std::span<const int> species, int first, int last,
                     const std::function<void(int species, std::span<char>)>& change)
{
    assert(first >= 0 && first < last && last <= nb_nuc_tot);
    std::vector<int> once(species.begin(), species.end());
    std::ranges::sort(once);
    once.erase(std::unique(once.begin(), once.end()), once.end());
    const RegionChange watch(once, first, last);
#pragma omp parallel for schedule(static) if (once.size() > 100)
    for (const int i : once) {
        fill_up(i, nb_nuc_tot);
        change(i, {row_storage(i) + first, static_cast<std::size_t>(last - first)});
    }
}

bool insert_residue(int species, int p, char c)
{
    const int new_length = std::max(length_of(species), p) + 1;
    if (new_length > longest_text()) return false;
    const RowChange watch(species, std::min(p, nb_nuc_tot), nb_nuc_tot);
    fill_up(species, p);
    move_text(species, p + 1, p, new_length - 1 - p);
    row_storage(species)[p] = c;
    set_length(species, new_length);
    return true;
}

void delete_residue(int species, int p)
{
    const int length = length_of(species);
    if (p >= length) return;
    const RowChange watch(species, std::min(p, nb_nuc_tot), nb_nuc_tot);
    move_text(species, p, p + 1, length - 1 - p);
    set_length(species, length - 1);
}

// ---- alignment length

namespace {

// Everything that can be refused is, and memory for n more columns is had, before anything changes.
Growth reserve_columns(int n)
{
    if (!may_grow(n)) return Growth::too_long;
    if (!columns_reserve(nb_nuc_tot + n) || !consensus_reserve(nb_nuc_tot + n)) return Growth::no_memory;
    return Growth::grown;
}

void extend_columns(int n)
{
    columns_extend(nb_nuc_tot, nb_nuc_tot + n);
    consensus_extend(nb_nuc_tot, nb_nuc_tot + n);
    nb_nuc_tot += n;
}

} // namespace

bool may_grow(int n)
{
    const long length = static_cast<long>(nb_nuc_tot) + n;
    return length + 1 < lenseq_tot && length <= max_alignment;
}

Growth grow_alignment(int n)
{
    const auto reserved = reserve_columns(n);
    if (reserved != Growth::grown) return reserved;
    for (int species = 0; species < nb_spec; species++)
        fill_up(species, nb_nuc_tot + n);
    extend_columns(n);
    counts_extended(n);
    return Growth::grown;
}

Growth open_columns(const Rows& kept, int p, int n)
{
    assert(p >= 0 && p <= nb_nuc_tot && n >= 0);
    std::vector<char> is_kept(static_cast<std::size_t>(nb_spec));
    for (const int species : kept.species())
        is_kept[static_cast<std::size_t>(species)] = 1;
    for (int species = 0; species < nb_spec; species++)
        if (!is_kept[static_cast<std::size_t>(species)] && length_of(species) > nb_nuc_tot &&
            length_of(species) + n > longest_text())
            return Growth::too_long;
    const auto reserved = reserve_columns(n);
    if (reserved != Growth::grown) return reserved;

    OpeningColumns counts(kept.species(), kept.ensemble(), p, n);
#pragma omp parallel for schedule(static) if (nb_spec > 100)
    for (int species = 0; species < nb_spec; species++) {
        if (is_kept[static_cast<std::size_t>(species)]) {
            fill_up(species, nb_nuc_tot + n);
        } else {
            const char filler = shift_filler(species, p);
            counts.fillers[static_cast<std::size_t>(species)] = filler;
            fill_up(species, nb_nuc_tot);
            insert_into_row(species, p, n, filler, length_of(species) + n);
        }
    }
    extend_columns(n);
    return Growth::grown;
}

char shift_filler(int species, int p)
{
    const bool blank_here = residue(species, p) == ' ';
    if (p == 0) return blank_here ? ' ' : '*';
    const bool blank_before = residue(species, p - 1) == ' ';
    return blank_before && (blank_here || p >= nb_nuc_tot - 1) ? ' ' : '*';
}

} // namespace kq
