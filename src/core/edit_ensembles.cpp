// model: the edit door: ensembles and their members.
#include "core/column_counts.h"
#include "core/column_upkeep.h"
#include "core/consensus.h"
#include "core/edit.h"
#include "core/store.h"
#include "screen/strings.h"

#include <algorithm>
#include <cassert>
#include <vector>

namespace kq {

int add_ensemble()
{
    if (nb_ens >= max_ensembles || !consensus_allocate(nb_ens, nb_nuc_tot).empty()) return -1;
    const auto e = static_cast<std::size_t>(nb_ens);
    nb_spec_ens[e] = 0;
    type_affich_ens[e] = -1;
    ens_names[e][0] = 0;
    return nb_ens++;
}

void remove_ensemble(int ensemble)
{
    assert(nb_ens > 1 && ensemble >= 0 && ensemble < nb_ens);
    counts_ensemble_removed(ensemble);
    for (auto e = static_cast<std::size_t>(ensemble); e + 1 < static_cast<std::size_t>(nb_ens); e++) {
        cor_ens[e] = cor_ens[e + 1];
        nb_spec_ens[e] = nb_spec_ens[e + 1];
        type_affich_ens[e] = type_affich_ens[e + 1];
        std::ranges::copy(ens_names[e + 1], ens_names[e]);
    }
    nb_ens--;
    const auto freed = static_cast<std::size_t>(nb_ens);
    nb_spec_ens[freed] = 0;
    type_affich_ens[freed] = -1;
    ens_names[freed][0] = 0;
}

void set_members(int ensemble, std::span<const int> species)
{
    const auto e = static_cast<std::size_t>(ensemble);
    constexpr char left_out = 0, leaves = 1, stays = 2, enters = 3;
    std::vector<char> fate(max_species, left_out);
    for (const int member : members(ensemble))
        fate[static_cast<std::size_t>(member)] = leaves;
    std::vector<int> list, removed, added;
    for (const int member : species) {
        auto& f = fate[static_cast<std::size_t>(member)];
        if (f == stays || f == enters || std::ssize(list) == max_ensemble_species) continue;
        if (f == left_out) added.push_back(member);
        f = f == leaves ? stays : enters;
        list.push_back(member);
    }
    for (const int member : members(ensemble))
        if (fate[static_cast<std::size_t>(member)] == leaves) removed.push_back(member);
    std::ranges::copy(list, cor_ens[e].begin());
    nb_spec_ens[e] = static_cast<int>(list.size());
    counts_members_changed(ensemble, removed, added);
}

bool append_member(int ensemble, int species)
{
    const auto e = static_cast<std::size_t>(ensemble);
    const auto present = members(ensemble);
    if (nb_spec_ens[e] >= max_ensemble_species || std::ranges::find(present, species) != present.end())
        return false;
    cor_ens[e][static_cast<std::size_t>(nb_spec_ens[e]++)] = species;
    counts_members_changed(ensemble, {}, std::span(&species, 1));
    return true;
}

void remove_member(int ensemble, int index)
{
    const auto e = static_cast<std::size_t>(ensemble);
    assert(index >= 0 && index < nb_spec_ens[e]);
    const auto list = cor_ens[e].begin();
    const int species = list[index];
    std::copy(list + index + 1, list + nb_spec_ens[e], list + index);
    nb_spec_ens[e]--;
    counts_members_changed(ensemble, std::span(&species, 1), {});
}

void set_collapsed(int ensemble, bool is_collapsed)
{
    type_affich_ens[static_cast<std::size_t>(ensemble)] = is_collapsed ? 0 : -1;
    if (!is_collapsed) release_counts(CountedSet::ensemble, ensemble);
}

void set_ensemble_name(int ensemble, std::string_view name)
{
    copy_field(ens_names[ensemble], name);
}

void reset_ensembles()
{
    for (auto& name : ens_names)
        name[0] = 0;
    nb_ens = 1;
    nb_spec_ens.fill(0);
    type_affich_ens.fill(-1);
    counts_forget();
}

} // namespace kq
