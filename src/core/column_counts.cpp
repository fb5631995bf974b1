// model: per-column counts of residue classes, for the sets of rows in use.
#include "core/column_counts.h"

#include "core/residues.h"
#include "core/store.h"
#include "screen/process_end.h"
#include "screen/strings.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cassert>
#include <cstring>
#include <vector>

namespace kq {

namespace {

// The ensembles that a species is a member of, bit e for ensemble e.
using EnsembleBits = std::uint64_t;
static_assert(max_ensembles <= 64);
std::array<EnsembleBits, max_species> ensembles_of{};

// The same, read from the lists.
std::vector<EnsembleBits> listed_ensembles()
{
    std::vector<EnsembleBits> listed(max_species);
    for (int e = 0; e < nb_ens; e++)
        for (const int species : members(e))
            listed[static_cast<std::size_t>(species)] |= EnsembleBits{1} << e;
    return listed;
}

CountTable of_ensembles, of_species;
std::array<CountTable, max_ensembles> of_ensemble;

EnsembleBits bit(int ensemble)
{
    return ensemble < 0 ? 0 : EnsembleBits{1} << ensemble;
}

EnsembleBits& bits(int species)
{
    return ensembles_of[static_cast<std::size_t>(species)];
}

CountTable& ensemble_table(int ensemble)
{
    return of_ensemble[static_cast<std::size_t>(ensemble)];
}

CountTable& table(CountedSet set, int ensemble)
{
    if (set == CountedSet::ensemble) return ensemble_table(ensemble);
    return set == CountedSet::ensembles ? of_ensembles : of_species;
}

bool any_table()
{
    return of_ensembles.exists() || of_species.exists() ||
           std::ranges::any_of(of_ensemble, &CountTable::exists);
}

CountedText counted_text(int species)
{
    const auto text = row(species);
    return {text.data(), static_cast<int>(text.size())};
}

std::vector<CountedText> texts_of(std::span<const int> species)
{
    std::vector<CountedText> texts;
    for (const int i : species)
        texts.push_back(counted_text(i));
    return texts;
}

// Calls f(species) for each row of a set, with multiplicity.
template <typename F>
void for_rows_of(CountedSet set, int ensemble, F f)
{
    if (set == CountedSet::species) {
        for (int i = 0; i < nb_spec; i++)
            f(i);
        return;
    }
    const bool one = set == CountedSet::ensemble;
    for (int e = one ? ensemble : 0; e < (one ? ensemble + 1 : nb_ens); e++)
        for (const int species : members(e))
            f(species);
}

std::vector<CountedText> texts_of(CountedSet set, int ensemble)
{
    std::vector<CountedText> texts;
    for_rows_of(set, ensemble, [&texts](int species) { texts.push_back(counted_text(species)); });
    return texts;
}

void count_anew(CountedSet set, int ensemble)
{
    const auto texts = texts_of(set, ensemble);
    auto& counts = table(set, ensemble);
    if (!counts.start(type_seq, nb_nuc_tot, static_cast<int>(texts.size())))
        erreur_fatale("Insufficient available memory (column counts)");
    counts.add(texts, 0, nb_nuc_tot, Sign::plus);
}

// Calls f(table, times) for each table that counts a row, and how many times it does; apart_from as above.
template <typename F>
void for_tables_of(int species, int apart_from, F f)
{
    const auto others = bits(species) & ~bit(apart_from);
    if (of_ensembles.exists() && others) f(of_ensembles, std::popcount(others));
    if (of_species.exists() && apart_from < 0) f(of_species, 1);
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

const CountTable& column_counts(CountedSet set, int ensemble)
{
    const auto& counts = table(set, ensemble);
    if (!counts.exists()) count_anew(set, ensemble);
    return counts;
}

ColumnRange take_changes(CountedSet set, int ensemble)
{
    return table(set, ensemble).take_changes();
}

void release_counts(CountedSet set, int ensemble)
{
    table(set, ensemble).release();
}

void counts_forget()
{
    of_ensembles.release();
    of_species.release();
    for (auto& counts : of_ensemble)
        counts.release();
    std::ranges::copy(listed_ensembles(), ensembles_of.begin());
}

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

// ---- an ensemble edited as one

namespace {

// Adds what an ensemble adds to the sums.
void add_to_sums(int ensemble, int first, int last, Sign sign)
{
    for (auto* sums : {&of_ensembles, &of_species})
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

// Calls f(table, set, ensemble) for each table that exists.
template <typename F>
void for_all_tables(F f)
{
    if (of_ensembles.exists()) f(of_ensembles, CountedSet::ensembles, 0);
    if (of_species.exists()) f(of_species, CountedSet::species, 0);
    for (int e = 0; e < max_ensembles; e++)
        if (ensemble_table(e).exists()) f(ensemble_table(e), CountedSet::ensemble, e);
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
    bits(species) = 0;
    if (!of_species.exists()) return;
    const auto text = counted_text(species);
    of_species.add(std::span(&text, 1), 0, nb_nuc_tot, Sign::plus);
    of_species.set_members(nb_spec);
}

// ---- members

void counts_members_changed(int ensemble, std::span<const int> removed, std::span<const int> added)
{
    for (const int species : removed)
        bits(species) &= ~bit(ensemble);
    for (const int species : added)
        bits(species) |= bit(ensemble);
    const auto gone = texts_of(removed), come = texts_of(added);
    for (auto* counts : {&of_ensembles, &ensemble_table(ensemble)}) {
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
    const auto below = bit(ensemble) - 1;
    for (auto& e : ensembles_of)
        e = (e & below) | ((e & ~below) >> 1);
    for (int e = ensemble; e + 1 < max_ensembles; e++) {
        ensemble_table(e) = std::move(ensemble_table(e + 1));
        ensemble_table(e).touch();
    }
    ensemble_table(max_ensembles - 1).release();
}

// ---- checking

namespace {

std::string name_of(CountedSet set, int ensemble)
{
    if (set == CountedSet::ensemble) return text_format("ensemble %d", ensemble);
    return set == CountedSet::ensembles ? "all ensembles" : "all species";
}

// Character by character, unlike the counting that it checks.
std::string table_error(const CountTable& counts, CountedSet set, int ensemble)
{
    const auto name = name_of(set, ensemble);
    const auto texts = texts_of(set, ensemble);
    if (counts.columns() != nb_nuc_tot || counts.members() != std::ssize(texts))
        return text_format("the counts of %s are for %d rows of %d columns", name.c_str(), counts.members(),
                           counts.columns());
    const auto& codes = residue_codes(type_seq);
    for (int p = 0; p < nb_nuc_tot; p++) {
        std::array<std::uint32_t, most_classes> expected{};
        std::uint32_t blanks = 0;
        for (const auto& text : texts) {
            const char c = p < text.length ? text.text[p] : ' ';
            const int code = codes[static_cast<unsigned char>(c)];
            if (code != code_none) expected[static_cast<std::size_t>(code)]++;
            blanks += c == ' ';
        }
        for (int code = 0; code < counts.codes(); code++)
            if (counts.count(code, p) != expected[static_cast<std::size_t>(code)])
                return text_format("%s: code %d is counted %u times instead of %u in column %d", name.c_str(),
                                   code, counts.count(code, p), expected[static_cast<std::size_t>(code)], p);
        if (counts.blank(p) != blanks)
            return text_format("%s: %u blanks instead of %u in column %d", name.c_str(), counts.blank(p),
                               blanks, p);
    }
    return "";
}

} // namespace

std::string columns_error()
{
    if (!std::ranges::equal(listed_ensembles(), ensembles_of))
        return "the noted ensembles of the species are not those of their lists";
    std::string error;
    for_all_tables([&error](const CountTable& counts, CountedSet set, int e) {
        if (error.empty()) error = table_error(counts, set, e);
    });
    return error;
}

} // namespace kq
