// format: reads the species-to-group (.nom) and group-to-colour (.col) files; gives species and groups what
// they say. Opens no box.
#pragma once

#include <string>
#include <string_view>

namespace kq {

// A .nom file has one line "species , group" for each species.
//
// Sets no_groupe, no_family and nbtot_groupe of all species from the file's text. A line is compared with the
// identifiers without their family and without what follows "@"; it assigns every species that it matches.
// Species that no line names, and with families those without "-", go to "Cupboard" in family 0. Empty, or
// the fatal message, which names the file as `file`.
std::string assign_groups(std::string_view text, const std::string& file);

// What a .nom line is compared with.
std::string_view nom_key(std::string_view species_identifier);

// A .col file has one line "colour,group" for each leaf of the frame; a colour is a palette index.
//
// Sets color_groupe of the groups that have a colour already. Colours outside the palette are ignored. Empty,
// or the fatal message.
std::string assign_colours(std::string_view text, const std::string& file);

// The .col file of the current colours.
std::string col_text();

} // namespace kq
