// model: the edit door: species, their identifiers and flags.
#include "core/column_upkeep.h"
#include "core/edit.h"
#include "core/store.h"
#include "screen/strings.h"

#include <algorithm>
#include <cassert>
#include <cstdlib>
#include <cstring>

namespace kq {

namespace {

// Moves every row to where the smaller stride puts it: upwards through the rows, because each moves down.
void restride(int stride)
{
    if (stride == lenseq_tot) return;
    for (int species = 0; species < nb_spec; species++) {
        const auto length = static_cast<std::size_t>(row_length[static_cast<std::size_t>(species)]);
        std::memmove(seq + static_cast<std::ptrdiff_t>(species) * stride, row_storage(species), length + 1);
    }
    lenseq_tot = stride;
}

void put_new_row(int species, std::string_view name, std::string_view text)
{
    const auto i = static_cast<std::size_t>(species);
    set_identifier(species, name);
    std::memcpy(row_storage(species), text.data(), text.size());
    row_storage(species)[text.size()] = 0;
    row_length[i] = static_cast<int>(text.size());
    pc_len[i] = nb_nuc_tot ? static_cast<int>(static_cast<long>(text.size()) * 100 / nb_nuc_tot) : 0;
    mask[i] = new_est[i] = no_family[i] = 0;
    destroy[i] = 0;
    evalue[i] = {-1.0, -1.0};
}

} // namespace

Adding add_species(std::string_view name, std::string_view text)
{
    assert(std::ssize(text) <= nb_nuc_tot);
    if (nb_spec >= max_species) return Adding::too_many_species;
    const int stride = static_cast<int>(seq_capacity / (nb_spec + 1));
    const int longest = *std::max_element(row_length.begin(), row_length.begin() + nb_spec);
    if (std::max(longest, nb_nuc_tot) + 1 > stride) return Adding::too_many_characters;
    void* records = std::realloc(ident, static_cast<std::size_t>(nb_spec + 1) * identifier_size);
    if (!records) return Adding::no_memory;
    ident = static_cast<char*>(records);

    restride(stride);
    put_new_row(nb_spec, name, text);
    nb_spec++;
    counts_row_added(nb_spec - 1);
    return Adding::added;
}

void set_identifier(int species, std::string_view name)
{
    copy_field({ident + static_cast<std::size_t>(species) * identifier_size, identifier_size}, name);
}

void set_masked(int species, bool masked)
{
    mask[static_cast<std::size_t>(species)] = masked ? -1 : 0;
}

void set_destroyed(int species, bool destroyed)
{
    destroy[static_cast<std::size_t>(species)] = destroyed ? 1 : 0;
}

} // namespace kq
