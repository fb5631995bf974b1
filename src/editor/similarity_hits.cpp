// model: the pattern of the similarity search, and the places where it was found.
#include "editor/similarity_hits.h"

#include "core/store.h"
#include "screen/strings.h"
#include "taxonomy/selection.h"

#include <algorithm>
#include <span>
#include <vector>

namespace kq {

constinit char ss[pattern_size] = "";
constinit std::array<int, max_hits> sim{}, posi{};
constinit int tophits = 0;
constinit std::array<int, max_species_hits> sim_tous{}, posi_tous{}, esp_tous{};

namespace {

void count_tophits()
{
    tophits = std::clamp(nb_spec - 1, 0, max_hits);
}

StartRange starts_in_whole_row()
{
    return {.first = 0, .last = nb_nuc_tot - static_cast<int>(pattern().size()) + 1};
}

std::vector<int> species_of_scope(int excluded, int scope)
{
    std::vector<bool> in_scope(static_cast<std::size_t>(nb_spec), scope == all_species);
    const auto add = [&](std::span<const int> list) {
        for (const int species : list)
            in_scope[static_cast<std::size_t>(species)] = true;
    };
    if (scope == listed_species) add(working_list());
    if (scope == ensemble_species)
        for (int ensemble = 0; ensemble < nb_ens; ensemble++)
            add(members(ensemble));

    std::vector<int> species;
    for (int s = 0; s < nb_spec; s++)
        if (in_scope[static_cast<std::size_t>(s)] && !destroy[static_cast<std::size_t>(s)] && s != excluded)
            species.push_back(s);
    return species;
}

} // namespace

std::string_view pattern()
{
    return ss;
}

void set_pattern(std::string_view text)
{
    copy_field(ss, text);
}

std::string_view searched_text(int species)
{
    const auto text = row(species);
    return {text.data(), std::min(text.size(), static_cast<std::size_t>(nb_nuc_tot))};
}

void search_row(std::string_view row, int window, int column)
{
    count_tophits();
    StartRange starts = starts_in_whole_row();
    if (window != whole_row)
        starts = {.first = column - window,
                  .last = std::min(column + window, lenseq_tot - static_cast<int>(pattern().size()))};
    std::array<SimilarityHit, max_hits> ranking;
    SearchedRow(row).rank(pattern(), starts, std::span(ranking).first(static_cast<std::size_t>(tophits)));
    for (std::size_t i = 0; i < ranking.size(); i++) {
        sim[i] = ranking[i].score;
        posi[i] = ranking[i].position + 1;
    }
}

void search_species(int excluded, int scope)
{
    count_tophits();
    const auto species = species_of_scope(excluded, scope);
    std::vector<std::string_view> rows(species.size());
    std::ranges::transform(species, rows.begin(), searched_text);
    std::vector<SimilarityHit> best(species.size());
    best_positions(rows, pattern(), starts_in_whole_row(), best);

    std::array<SimilarityHit, max_species_hits> ranking;
    for (std::size_t i = 0; i < species.size(); i++) {
        best[i].species = species[i];
        rank_hit(ranking, best[i]);
    }
    for (std::size_t i = 0; i < ranking.size(); i++) {
        sim_tous[i] = ranking[i].score;
        posi_tous[i] = ranking[i].position + 1;
        esp_tous[i] = ranking[i].species;
    }
}

} // namespace kq
