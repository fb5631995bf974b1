// model: paralog families, derived from the identifiers.
#pragma once

#include <string_view>

namespace kq {

inline constexpr int max_families = 37;

extern int nb_family;                      // 0 = the alignment has none; else 2..max_families
extern char name_family[max_families][80]; // the beginning of an identifier up to and including its first "-"

enum class FamilyResult { found, single_ignored, too_many };
// Fills nb_family, name_family and no_family (core/store.h). single_ignored: exactly one family was found,
// which is not taken into account (nb_family is 0). Shows nothing.
FamilyResult derive_families();

// The part of an identifier after its first "-" when families exist and a blank stands after that "-"; else
// the whole identifier.
std::string_view without_family(std::string_view identifier);
// The text before the first "@", or all of it.
std::string_view before_accession(std::string_view identifier);
// The first family whose name the identifier begins with, or nb_family.
int family_of(std::string_view identifier);

} // namespace kq
