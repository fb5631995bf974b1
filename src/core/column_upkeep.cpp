// model: keeping the column counts exact while rows, the length and ensembles change.
#include "core/column_upkeep.h"

#include "core/column_counts.h"
#include "core/membership.h"
#include "core/store.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cassert>
#include <cstring>
#include <utility>

namespace kq {

namespace {

CountTable& ensemble_table(int ensemble)
{
    return count_table(CountedSet::ensemble, ensemble);
}

CountTable& of_ensembles()
{
    return count_table(CountedSet::ensembles);
}

CountTable& of_species()
{
    return count_table(CountedSet::species);
}

// Calls f(table, set, ensemble) for each table that exists.
template <typename F>
void for_all_tables(F f)
{
    if (of_ensembles().exists()) f(of_ensembles(), CountedSet::ensembles, 0);
    if (of_species().exists()) f(of_species(), CountedSet::species, 0);
    for (int e = 0; e < max_ensembles; e++)
        if (ensemble_table(e).exists()) f(ensemble_table(e), CountedSet::ensemble, e);
}

bool any_table()
{
    bool any = false;
    for_all_tables([&any](const CountTable&, CountedSet, int) { any = true; });
    return any;
}

// Calls f(table, times) for each table that counts a row, and how many times it does. What an ensemble that
// the row is apart from counts, the species' sum included, is left to its EnsembleChange.
template <typename F>
void for_tables_of(int species, int apart_from, F f)
{
    const auto others = ensembles_of(species) & ~(apart_from < 0 ? 0 : ensemble_bit(apart_from));
    if (of_ensembles().exists() && others) f(of_ensembles(), std::popcount(others));
    if (of_species().exists() && apart_from < 0) f(of_species(), 1);
    for (auto left = others; left; left &= left - 1) {
        auto& counts = ensemble_table(std::countr_zero(left));
        if (counts.exists()) f(counts, 1);
    }
}

// What a row shows in the columns [first, last).
void copy_visible(int species, int first, int last, char* target)
{
    const auto text = counted_text(species);
    const int end = std::clamp(text.length, first, last);
    std::memcpy(target, text.text + first, static_cast<std::size_t>(end - first));
    std::memset(target + (end - first), ' ', static_cast<std::size_t>(last - end));
}

std::array<char, max_alignment + 1> text_before, text_after;

} // namespace

// ---- one row

bool row_is_counted(int species, int apart_from)
{
    bool counted = false;
    for_tables_of(species, apart_from, [&counted](const CountTable&, int) { counted = true; });
    return counted;
}

RowChange::RowChange(int species, int first, int last, int apart_from)
    : species_(species)
    , first_(first)
    , last_(last)
    , apart_from_(apart_from)
{
    if (row_is_counted(species, apart_from)) copy_visible(species, first, last, text_before.data());
}

RowChange::~RowChange()
{
    if (!row_is_counted(species_, apart_from_)) return;
    copy_visible(species_, first_, last_, text_after.data());
    const auto length = static_cast<std::size_t>(last_ - first_);
    const std::string_view before(text_before.data(), length), after(text_after.data(), length);
    for_tables_of(species_, apart_from_,
                  [&](CountTable& counts, int times) { counts.change(first_, before, after, times); });
}

// ---- many rows

RegionChange::RegionChange(std::span<const int> species, int first, int last)
    : is_changed_(static_cast<std::size_t>(nb_spec))
    , first_(first)
    , last_(last)
{
    for (const int i : species)
        is_changed_[static_cast<std::size_t>(i)] = 1;
    for_all_tables([this](CountTable& counts, CountedSet set, int e) {
        const auto texts = changed_texts(set, e);
        if (counts_anew(counts, texts.size()))
            counts.clear(first_, last_);
        else
            counts.add(texts, first_, last_, Sign::minus);
    });
}

RegionChange::~RegionChange()
{
    for_all_tables([this](CountTable& counts, CountedSet set, int e) {
        auto texts = changed_texts(set, e);
        if (counts_anew(counts, texts.size())) texts = texts_of(set, e);
        counts.add(texts, first_, last_, Sign::plus);
    });
}

std::vector<CountedText> RegionChange::changed_texts(CountedSet set, int ensemble) const
{
    std::vector<CountedText> texts;
    for_rows_of(set, ensemble, [&](int species) {
        if (is_changed_[static_cast<std::size_t>(species)]) texts.push_back(counted_text(species));
    });
    return texts;
}

// Taking the changed rows out and putting them in again would read more rows than there are.
bool RegionChange::counts_anew(const CountTable& counts, std::size_t changed) const
{
    return 2 * changed >= static_cast<std::size_t>(counts.members());
}

// ---- an ensemble edited as one

namespace {

// Adds what an ensemble adds to the sums.
void add_to_sums(int ensemble, int first, int last, Sign sign)
{
    for (auto* sums : {&of_ensembles(), &of_species()})
        if (sums->exists()) sums->add(ensemble_table(ensemble), first, last, sign);
}

// Counts an ensemble that is about to change as one; false when nothing at all is counted.
bool count_for_change(int ensemble)
{
    if (!any_table()) return false;
    column_counts(CountedSet::ensemble, ensemble);
    return true;
}

// The counts of an ensemble shown species by species are of no use to anyone else.
void release_if_shown(int ensemble)
{
    if (!collapsed(ensemble)) ensemble_table(ensemble).release();
}

} // namespace

EnsembleChange::EnsembleChange(int ensemble, int first)
    : ensemble_(ensemble)
    , first_(first)
{
    if (ensemble < 0) return;
    if (count_for_change(ensemble)) add_to_sums(ensemble, first, nb_nuc_tot, Sign::minus);
}

EnsembleChange::~EnsembleChange()
{
    if (ensemble_ < 0 || !ensemble_table(ensemble_).exists()) return;
    add_to_sums(ensemble_, first_, nb_nuc_tot, Sign::plus);
    release_if_shown(ensemble_);
}

void EnsembleChange::inserted(int n, char c)
{
    if (ensemble_ < 0 || !ensemble_table(ensemble_).exists()) return;
    auto& counts = ensemble_table(ensemble_);
    counts.shift_right(first_, n);
    counts.add(c, counts.members(), first_, std::min(first_ + n, nb_nuc_tot));
}

void EnsembleChange::erased(int n)
{
    if (ensemble_ < 0 || !ensemble_table(ensemble_).exists()) return;
    auto& counts = ensemble_table(ensemble_);
    counts.shift_left(first_, n);
    counts.add(texts_of(members(ensemble_)), std::max(first_, nb_nuc_tot - n), nb_nuc_tot, Sign::plus);
}

// ---- all rows

namespace {

// Adds the rows that keep their place while columns open to every table that counts them, except to the table
// of their own ensemble.
void add_kept(std::span<const int> kept, int ensemble, int first, int last, Sign sign)
{
    if (ensemble >= 0) add_to_sums(ensemble, first, last, sign);
    for (const int species : kept) {
        const auto text = counted_text(species);
        for_tables_of(species, ensemble, [&](CountTable& counts, int times) {
            for (int i = 0; i < times; i++)
                counts.add(std::span(&text, 1), first, last, sign);
        });
    }
}

} // namespace

OpeningColumns::OpeningColumns(std::span<const int> kept, int kept_ensemble, int p, int n)
    : fillers(static_cast<std::size_t>(nb_spec))
    , kept_(kept)
    , kept_ensemble_(kept_ensemble)
    , p_(p)
    , n_(n)
{
    if (!any_table()) return;
    if (kept_ensemble >= 0) count_for_change(kept_ensemble);
    add_kept(kept, kept_ensemble, p, nb_nuc_tot, Sign::minus);
}

void OpeningColumns::open(CountTable& counts, CountedSet set, int ensemble) const
{
    counts.extend(n_);
    if (!counts.exists()) return;
    if (set == CountedSet::ensemble && ensemble == kept_ensemble_) {
        counts.add(texts_of(set, ensemble), nb_nuc_tot - n_, nb_nuc_tot, Sign::plus);
        return;
    }
    int stars = 0, blanks = 0;
    for_rows_of(set, ensemble, [&](int species) {
        const char filler = fillers[static_cast<std::size_t>(species)];
        stars += filler == '*';
        blanks += filler == ' ';
    });
    counts.shift_right(p_, n_);
    counts.add('*', stars, p_, p_ + n_);
    counts.add(' ', blanks, p_, p_ + n_);
}

OpeningColumns::~OpeningColumns()
{
    if (!any_table()) return;
    for_all_tables([this](CountTable& counts, CountedSet set, int e) { open(counts, set, e); });
    if (kept_ensemble_ >= 0 && !ensemble_table(kept_ensemble_).exists()) {
        counts_forget(); // no memory for the longer table: nothing to put back into the sums
        return;
    }
    add_kept(kept_, kept_ensemble_, p_, nb_nuc_tot, Sign::plus);
    if (kept_ensemble_ >= 0) release_if_shown(kept_ensemble_);
}

void counts_extended(int n)
{
    for_all_tables([n](CountTable& counts, CountedSet set, int e) {
        counts.extend(n);
        if (counts.exists()) counts.add(texts_of(set, e), nb_nuc_tot - n, nb_nuc_tot, Sign::plus);
    });
}

void counts_row_added(int species)
{
    if (!of_species().exists()) return;
    const auto text = counted_text(species);
    of_species().add(std::span(&text, 1), 0, nb_nuc_tot, Sign::plus);
    of_species().set_members(nb_spec);
}

// ---- members

void counts_members_changed(int ensemble, std::span<const int> removed, std::span<const int> added)
{
    note_membership(ensemble, removed, added);
    const auto gone = texts_of(removed), come = texts_of(added);
    for (auto* counts : {&of_ensembles(), &ensemble_table(ensemble)}) {
        if (!counts->exists()) continue;
        const int count = counts->members() + static_cast<int>(std::ssize(come) - std::ssize(gone));
        if (!counts->holds(count)) {
            counts->release();
            continue;
        }
        counts->add(gone, 0, nb_nuc_tot, Sign::minus);
        counts->add(come, 0, nb_nuc_tot, Sign::plus);
        counts->set_members(count);
    }
}

void counts_ensemble_removed(int ensemble)
{
    const std::vector<int> leaving(members(ensemble).begin(), members(ensemble).end());
    ensemble_table(ensemble).release();
    counts_members_changed(ensemble, leaving, {});
    note_ensemble_removed(ensemble);
    for (int e = ensemble; e + 1 < max_ensembles; e++) {
        ensemble_table(e) = std::move(ensemble_table(e + 1));
        ensemble_table(e).touch();
    }
    ensemble_table(max_ensembles - 1).release();
}

} // namespace kq
