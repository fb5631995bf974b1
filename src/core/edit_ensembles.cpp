// model: the edit door: ensembles and their members.
#include "core/column_counts.h"
#include "core/consensus.h"
#include "core/edit.h"
#include "core/store.h"
#include "screen/strings.h"

#include <algorithm>
#include <bitset>
#include <cassert>

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
    counts_forget();
}

void set_members(int ensemble, std::span<const int> species)
{
    const auto e = static_cast<std::size_t>(ensemble);
    std::bitset<max_species> seen;
    int count = 0;
    for (const int member : species) {
        const auto i = static_cast<std::size_t>(member);
        if (seen[i] || count == max_ensemble_species) continue;
        seen[i] = true;
        cor_ens[e][static_cast<std::size_t>(count++)] = member;
    }
    nb_spec_ens[e] = count;
    counts_forget();
}

bool append_member(int ensemble, int species)
{
    const auto e = static_cast<std::size_t>(ensemble);
    const auto present = members(ensemble);
    if (nb_spec_ens[e] >= max_ensemble_species || std::ranges::find(present, species) != present.end())
        return false;
    cor_ens[e][static_cast<std::size_t>(nb_spec_ens[e]++)] = species;
    counts_forget();
    return true;
}

void remove_member(int ensemble, int index)
{
    const auto e = static_cast<std::size_t>(ensemble);
    assert(index >= 0 && index < nb_spec_ens[e]);
    const auto list = cor_ens[e].begin();
    std::copy(list + index + 1, list + nb_spec_ens[e], list + index);
    nb_spec_ens[e]--;
    counts_forget();
}

void set_collapsed(int ensemble, bool is_collapsed)
{
    type_affich_ens[static_cast<std::size_t>(ensemble)] = is_collapsed ? 0 : -1;
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
