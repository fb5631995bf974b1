// model: per-column counts of residue classes, for the sets of rows in use.
#include "core/column_counts.h"

#include "core/membership.h"
#include "core/residues.h"
#include "screen/process_end.h"
#include "screen/strings.h"

#include <array>
#include <cstdint>

namespace kq {

namespace {

CountTable of_ensembles, of_species;
std::array<CountTable, max_ensembles> of_ensemble;

void count_anew(CountedSet set, int ensemble)
{
    const auto texts = texts_of(set, ensemble);
    auto& counts = count_table(set, ensemble);
    if (!counts.start(type_seq, nb_nuc_tot, static_cast<int>(texts.size())))
        erreur_fatale("Insufficient available memory (column counts)");
    counts.add(texts, 0, nb_nuc_tot, Sign::plus);
}

} // namespace

CountTable& count_table(CountedSet set, int ensemble)
{
    if (set == CountedSet::ensemble) return of_ensemble[static_cast<std::size_t>(ensemble)];
    return set == CountedSet::ensembles ? of_ensembles : of_species;
}

const CountTable& column_counts(CountedSet set, int ensemble)
{
    const auto& counts = count_table(set, ensemble);
    if (!counts.exists()) count_anew(set, ensemble);
    return counts;
}

ColumnRange take_changes(CountedSet set, int ensemble)
{
    return count_table(set, ensemble).take_changes();
}

void release_counts(CountedSet set, int ensemble)
{
    count_table(set, ensemble).release();
}

void counts_forget()
{
    of_ensembles.release();
    of_species.release();
    for (auto& counts : of_ensemble)
        counts.release();
    membership_reread();
}

// ---- checking

namespace {

std::string name_of(CountedSet set, int ensemble)
{
    if (set == CountedSet::ensemble) return text_format("ensemble %d", ensemble);
    return set == CountedSet::ensembles ? "all ensembles" : "all species";
}

// Character by character, unlike the counting that it checks.
std::string table_error(CountedSet set, int ensemble)
{
    const auto& counts = count_table(set, ensemble);
    if (!counts.exists()) return "";
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
    if (const auto error = membership_error(); !error.empty()) return error;
    if (const auto error = table_error(CountedSet::ensembles, 0); !error.empty()) return error;
    if (const auto error = table_error(CountedSet::species, 0); !error.empty()) return error;
    for (int e = 0; e < max_ensembles; e++)
        if (const auto error = table_error(CountedSet::ensemble, e); !error.empty()) return error;
    return "";
}

} // namespace kq
