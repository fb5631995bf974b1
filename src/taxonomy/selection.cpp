// model: the selection of species for the ensemble under construction.
#include "taxonomy/selection.h"

#include "screen/strings.h"
#include "taxonomy/frame.h"

#include <memory>
#include <vector>

namespace kq {

constinit std::array<int, max_species> retenu = [] {
    std::array<int, max_species> none{};
    none.fill(-1);
    return none;
}();
constinit int nb_retenu = 0;
constinit std::array<int, max_species> drap_select{};
constinit std::array<int, max_species> cor{};
constinit int nb_spec_gro = 0;

namespace {

using Counts = decltype(nbtot_groupe);

int& rank_of(int species)
{
    return retenu[static_cast<std::size_t>(species)];
}

// The species' counter; null before its group is known.
int* counter(Counts& counts, int species)
{
    const int family = no_family[static_cast<std::size_t>(species)];
    const int group = no_groupe[static_cast<std::size_t>(species)];
    if (family < 0 || family > max_families || group < 0 || group >= max_groups) return nullptr;
    return &counts[static_cast<std::size_t>(family)][static_cast<std::size_t>(group)];
}

void count(Counts& counts, int species, int change)
{
    if (int* c = counter(counts, species)) *c += change;
}

void give_next_rank(int species)
{
    if (rank_of(species) != -1) return;
    rank_of(species) = ++nb_retenu;
    count(nbret_groupe, species, 1);
}

} // namespace

std::span<const int> working_list()
{
    return std::span(cor).first(static_cast<std::size_t>(nb_spec_gro));
}

bool selectable(int species)
{
    const auto s = static_cast<std::size_t>(species);
    return !destroy[s] && mask[s] == 0;
}

void select_species(int species)
{
    if (selectable(species)) give_next_rank(species);
}

void deselect_species(int species)
{
    deselect_many({&species, 1});
}

void deselect_many(std::span<const int> list)
{
    std::vector<int> closed_up(static_cast<std::size_t>(nb_retenu) + 1, 0); // 1 = the rank goes
    const int before = nb_retenu;
    for (const int species : list) {
        const int rank = rank_of(species);
        if (rank == -1) continue;
        closed_up[static_cast<std::size_t>(rank)] = 1;
        rank_of(species) = -1;
        count(nbret_groupe, species, -1);
        nb_retenu--;
    }
    if (nb_retenu == before) return;
    int gone = 0;
    for (std::size_t rank = 1; rank < closed_up.size(); rank++) { // from here: the rank's new value
        gone += closed_up[rank];
        closed_up[rank] = static_cast<int>(rank) - gone;
    }
    for (int s = 0; s < nb_spec; s++)
        if (rank_of(s) != -1) rank_of(s) = closed_up[static_cast<std::size_t>(rank_of(s))];
}

void toggle_many(std::span<const int> list)
{
    std::vector<int> in, out;
    for (const int species : list)
        if (selectable(species)) (rank_of(species) == -1 ? in : out).push_back(species);
    deselect_many(out);
    for (const int species : in)
        give_next_rank(species);
}

void clear_selection()
{
    retenu.fill(-1);
    for (auto& family : nbret_groupe)
        family.fill(0);
    nb_retenu = 0;
}

void set_selection(std::span<const int> ranked)
{
    clear_selection();
    for (const int species : ranked)
        give_next_rank(species);
}

void chercher_specie_retenue()
{
    for (int s = 0; s < nb_spec; s++)
        if (rank_of(s) != -1) cor[static_cast<std::size_t>(rank_of(s)) - 1] = s;
    nb_spec_gro = nb_retenu;
}

void retenir_all_specie(int mode)
{
    for (const int species : working_list()) {
        const auto s = static_cast<std::size_t>(species);
        if (mode == retain_free && drap_select[s] == 0) continue;
        if (mode == retain_new && new_est[s] == 0) continue;
        select_species(species);
    }
}

void move_species_to_group(int species, int family, int group)
{
    const bool selected = rank_of(species) != -1;
    count(nbtot_groupe, species, -1);
    if (selected) count(nbret_groupe, species, -1);
    no_family[static_cast<std::size_t>(species)] = family;
    no_groupe[static_cast<std::size_t>(species)] = group;
    count(nbtot_groupe, species, 1);
    if (selected) count(nbret_groupe, species, 1);
}

std::string selection_error()
{
    std::vector<bool> taken(static_cast<std::size_t>(nb_retenu) + 1, false);
    const auto assigned = std::make_unique<Counts>(), selected = std::make_unique<Counts>();
    int ranked = 0;
    for (int s = 0; s < nb_spec; s++) {
        count(*assigned, s, 1);
        const int rank = rank_of(s);
        if (rank == -1) continue;
        if (rank < 1 || rank > nb_retenu) return text_format("row %d has rank %d", s, rank);
        if (taken[static_cast<std::size_t>(rank)]) return text_format("rank %d is given twice", rank);
        taken[static_cast<std::size_t>(rank)] = true;
        ranked++;
        count(*selected, s, 1);
    }
    if (ranked != nb_retenu) return text_format("%d species are ranked, %d counted", ranked, nb_retenu);
    if (*selected != nbret_groupe) return "the selected species per group are miscounted";
    if (nb_groupe > 0 && *assigned != nbtot_groupe) return "the species per group are miscounted";
    return "";
}

void selection_reset()
{
    clear_selection();
    drap_select.fill(-1);
    cor.fill(0);
    nb_spec_gro = 0;
}

} // namespace kq
