#include "support/model.h"

#include "core/column_counts.h"
#include "core/columns.h"
#include "core/consensus.h"
#include "core/edit.h"
#include "core/lifecycle.h"
#include "core/store.h"

#include <algorithm>
#include <cstring>

namespace kq::test {

namespace {

bool is_gap(char c)
{
    return c == '*' || c == ' ';
}

} // namespace

char PlainModel::at(int species, int p) const
{
    const auto& row = rows[static_cast<std::size_t>(species)];
    return p < std::ssize(row) ? row[static_cast<std::size_t>(p)] : ' ';
}

std::string& PlainModel::padded(int species)
{
    auto& row = rows[static_cast<std::size_t>(species)];
    if (std::ssize(row) < columns) row.resize(static_cast<std::size_t>(columns), ' ');
    return row;
}

void PlainModel::insert_chars(const std::vector<int>& species, int p, int n, char c)
{
    for (const int i : species) {
        auto& row = padded(i).insert(static_cast<std::size_t>(p), static_cast<std::size_t>(n), c);
        for (int dropped = 0; dropped < n && is_gap(row.back()); dropped++)
            row.pop_back();
    }
}

void PlainModel::delete_chars(const std::vector<int>& species, int p, int n)
{
    for (const int i : species) {
        padded(i).erase(static_cast<std::size_t>(p), static_cast<std::size_t>(std::min(n, columns - p)));
        padded(i);
    }
}

void PlainModel::overwrite(int species, int p, std::string_view text)
{
    padded(species).replace(static_cast<std::size_t>(p), text.size(), text);
}

void PlainModel::reverse_columns(const std::vector<int>& species, int first, int last)
{
    for (const int i : species)
        std::reverse(padded(i).begin() + first, padded(i).begin() + last);
}

void PlainModel::insert_residue(int species, int p, char c)
{
    auto& row = rows[static_cast<std::size_t>(species)];
    if (std::ssize(row) < p) row.resize(static_cast<std::size_t>(p), ' ');
    row.insert(static_cast<std::size_t>(p), 1, c);
}

void PlainModel::delete_residue(int species, int p)
{
    auto& row = rows[static_cast<std::size_t>(species)];
    if (p < std::ssize(row)) row.erase(static_cast<std::size_t>(p), 1);
}

void PlainModel::grow(int n)
{
    columns += n;
    for (int i = 0; i < std::ssize(rows); i++)
        padded(i);
}

void PlainModel::open_columns(const std::vector<int>& kept, int p, int n)
{
    for (int i = 0; i < std::ssize(rows); i++) {
        if (std::ranges::find(kept, i) != kept.end()) continue;
        const bool blank_here = at(i, p) == ' ', blank_before = p > 0 && at(i, p - 1) == ' ';
        const bool inside = p == 0 ? blank_here : blank_before && (blank_here || p >= columns - 1);
        padded(i).insert(static_cast<std::size_t>(p), static_cast<std::size_t>(n), inside ? ' ' : '*');
    }
    grow(n);
}

plain::Texts PlainModel::texts(const std::vector<int>& species) const
{
    plain::Texts result;
    for (const int i : species)
        result.push_back(rows[static_cast<std::size_t>(i)]);
    return result;
}

plain::Texts PlainModel::ensemble_texts() const
{
    plain::Texts result;
    for (const auto& ensemble : ensembles)
        for (const auto text : texts(ensemble.members))
            result.push_back(text);
    return result;
}

plain::Texts PlainModel::all_texts() const
{
    return {rows.begin(), rows.end()};
}

void PlainModel::load() const
{
    alignment_reset();
    store_allocate();
    store_begin(static_cast<int>(std::ssize(rows)), columns);
    type_seq = type;
    for (int i = 0; i < nb_spec; i++)
        store_put(i, "Species " + std::to_string(i), rows[static_cast<std::size_t>(i)], false, false);
    columns_allocate(columns);
    consensus_allocate(0, columns);
    reset_ensembles();
    set_caractere();
}

std::string PlainModel::difference() const
{
    if (const auto error = store_error(); !error.empty()) return error;
    if (const auto error = columns_error(); !error.empty()) return error;
    if (nb_nuc_tot != columns) return "alignment length " + std::to_string(nb_nuc_tot);
    if (nb_spec != std::ssize(rows)) return "number of rows " + std::to_string(nb_spec);
    if (nb_ens != std::ssize(ensembles)) return "number of ensembles " + std::to_string(nb_ens);
    for (int i = 0; i < nb_spec; i++) {
        const auto text = row(i);
        const auto& expected = rows[static_cast<std::size_t>(i)];
        if (!std::ranges::equal(text, expected))
            return "row " + std::to_string(i) + " is \"" + std::string(text.begin(), text.end()) +
                   "\" instead of \"" + expected + "\"";
    }
    for (int e = 0; e < nb_ens; e++) {
        const auto& expected = ensembles[static_cast<std::size_t>(e)];
        if (!std::ranges::equal(members(e), expected.members) || collapsed(e) != expected.collapsed)
            return "ensemble " + std::to_string(e);
    }
    return "";
}

} // namespace kq::test
