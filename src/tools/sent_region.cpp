// model: the region pos_deb to pos_fin on its way to an alignment program and back.
#include "tools/sent_region.h"

#include "core/large_pages.h"
#include "core/store.h"
#include "editor/view.h"
#include "tools/compaction.h"
#include "tools/fasta_text.h"
#include "tools/gap_pattern.h"

#include <algorithm>

namespace kq {

namespace {

std::string_view text_in_region(int species)
{
    const std::span<const char> text = row(species);
    const std::string_view whole(text.data(), text.size());
    const auto first = static_cast<std::size_t>(pos_deb), end = static_cast<std::size_t>(pos_fin) + 1;
    return whole.substr(std::min(first, whole.size()), end - first);
}

} // namespace

int clustalw_seq(int species, int minimum, std::string& file)
{
    if (destroy[static_cast<std::size_t>(species)]) return 0;
    return append_fasta(file, species, text_in_region(species), minimum);
}

SentRegion::SentRegion(std::span<const int> species, int minimum)
    : records_(static_cast<std::size_t>(nb_spec))
{
    constexpr std::size_t header_width = 16;
    const auto width = static_cast<std::size_t>(pos_fin - pos_deb + 1);
    fasta_.reserve(std::min(species.size(), records_.size()) * (width + header_width));
    prefer_large_pages(fasta_.data(), fasta_.capacity());
    for (const int one : species) {
        if (has(one)) continue;
        const auto count = static_cast<std::size_t>(clustalw_seq(one, minimum, fasta_));
        if (count == 0) continue;
        species_.push_back(one);
        records_[static_cast<std::size_t>(one)] = {fasta_.size() - 1 - count, count};
    }
}

bool SentRegion::has(int species) const
{
    return species < std::ssize(records_) && records_[static_cast<std::size_t>(species)].count > 0;
}

std::string_view SentRegion::residues(int species) const
{
    const auto [first, count] = records_[static_cast<std::size_t>(species)];
    return std::string_view(fasta_).substr(first, count);
}

ResultProblem problem_of(const NexusAlignment& result, const SentRegion& sent)
{
    const std::vector<int>& species = result.species;
    for (const int one : species)
        if (!sent.has(one)) return {"was not sent", one};
    std::vector<char> equal(species.size());
#pragma omp parallel for schedule(static) if (species.size() > 100)
    for (std::size_t i = 0; i < species.size(); i++)
        equal[i] = has_residues(result.row(i), sent.residues(species[i]));
    if (const auto other = std::ranges::find(equal, 0); other != equal.end())
        return {"has other residues than were sent",
                species[static_cast<std::size_t>(other - equal.begin())]};
    // None is there twice: when the numbers are equal, none is missing.
    if (species.size() == sent.species().size()) return {};
    const auto is_missing = [&](int one) { return std::ranges::find(species, one) == species.end(); };
    return {"is missing", *std::ranges::find_if(sent.species(), is_missing)};
}

Growth write_into_region(std::span<const int> species, const SentRegion& sent, const NexusAlignment& result)
{
    constexpr std::size_t none = max_species;
    std::vector<std::size_t> row_of(static_cast<std::size_t>(nb_spec), none);
    for (std::size_t i = 0; i < result.species.size(); i++)
        row_of[static_cast<std::size_t>(result.species[i])] = i;

    const int width = pos_fin - pos_deb + 1, length = static_cast<int>(result.length);
    if (length > width) {
        const Growth growth = open_columns(Rows::none(), pos_fin + 1, length - width);
        if (growth != Growth::grown) return growth;
    }
    rewrite_columns(species, pos_deb, pos_deb + std::max(width, length),
                    [&](int one, std::span<char> region) {
                        const std::size_t i = row_of[static_cast<std::size_t>(one)];
                        if (i == none)
                            compact(region.first(static_cast<std::size_t>(width)), Direction::left);
                        else
                            lay_out(region, result.row(i), sent.residues(one));
                    });
    mark_changed();
    return Growth::grown;
}

} // namespace kq
