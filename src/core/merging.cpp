// model: the reference species of EST mode, and which species can be merged with it.
#include "core/merging.h"

namespace kq {

constinit int no_seq_ref = -1;
constinit std::array<int, max_species> mergeable{};

std::string_view merging_stem(std::string_view name)
{
    const auto at = name.find('@');
    return name.substr(0, name.find('.', at == std::string_view::npos ? 0 : at));
}

void mark_mergeables()
{
    mergeable.fill(0);
    if (no_seq_ref == -1) return;
    const auto stem = merging_stem(identifier(no_seq_ref));
    for (int species = 0; species < nb_spec; species++)
        mergeable[static_cast<std::size_t>(species)] = identifier(species).starts_with(stem);
}

void mergeable_reset()
{
    no_seq_ref = -1;
    mergeable.fill(0);
}

} // namespace kq
