// model: paralog families, derived from the identifiers.
#include "core/families.h"

#include "core/store.h"
#include "screen/strings.h"

namespace kq {

constinit int nb_family = 0;
constinit char name_family[max_families][80] = {};

namespace {

// The beginning of an identifier that names a family, or "".
std::string_view family_prefix(std::string_view name)
{
    const auto dash = name.find('-');
    if (dash == std::string_view::npos) return {};
    const auto prefix = name.substr(0, dash + 1);
    return prefix.find(' ') == std::string_view::npos ? prefix : std::string_view{};
}

} // namespace

int family_of(std::string_view name)
{
    for (int f = 0; f < nb_family; f++)
        if (name.starts_with(name_family[f])) return f;
    return nb_family;
}

FamilyResult derive_families()
{
    nb_family = 0;
    for (int i = 0; i < nb_spec; i++) {
        int& family = no_family[static_cast<std::size_t>(i)];
        family = 0;
        const auto prefix = family_prefix(identifier(i));
        if (prefix.empty()) continue;
        family = family_of(prefix);
        if (family < nb_family) continue;
        if (nb_family == max_families) return FamilyResult::too_many;
        copy_field(name_family[nb_family++], prefix);
    }
    if (nb_family != 1) return FamilyResult::found;
    nb_family = 0;
    return FamilyResult::single_ignored;
}

std::string_view without_family(std::string_view name)
{
    if (nb_family == 0) return name;
    const auto dash = name.find('-');
    if (dash == std::string_view::npos || name.find(' ', dash) == std::string_view::npos) return name;
    return name.substr(dash + 1);
}

std::string_view before_accession(std::string_view name)
{
    return name.substr(0, name.find('@'));
}

} // namespace kq
