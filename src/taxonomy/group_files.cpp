// format: the species-to-group and group-to-colour files.
#include "taxonomy/group_files.h"

#include "core/families.h"
#include "core/store.h"
#include "raster/grx.h"
#include "screen/strings.h"
#include "taxonomy/frame.h"
#include "taxonomy/text_file.h"

#include <algorithm>
#include <unordered_map>
#include <utility>
#include <vector>

namespace kq {

namespace {

// "left , right" at its first comma: blanks before it and after it do not count.
struct Pair {
    std::string_view left, right;
    bool has_comma = false;
};

Pair split_at_comma(std::string_view line)
{
    const std::size_t comma = line.find(',');
    if (comma == std::string_view::npos) return {};
    std::string_view left = line.substr(0, comma), right = line.substr(comma + 1);
    left = left.substr(0, left.find_last_not_of(' ') + 1);
    right.remove_prefix(std::min(right.find_first_not_of(' '), right.size()));
    return {left, right, true};
}

// First group of each name among groups 0 to count - 1, those with a colour only if asked for.
std::unordered_map<std::string_view, int> groups_by_name(int count, bool coloured_only)
{
    std::unordered_map<std::string_view, int> groups;
    for (int g = 0; g < count; g++)
        if (!coloured_only || color_groupe[static_cast<std::size_t>(g)] != -1)
            groups.emplace(group_name(g), g);
    return groups;
}

// The species by what .nom lines are compared with: for each text the first species, and for each species
// the next one with the same text.
struct SpeciesIndex {
    std::unordered_map<std::string_view, int> first;
    std::vector<int> next;

    SpeciesIndex()
        : next(static_cast<std::size_t>(nb_spec), -1)
    {
        first.reserve(static_cast<std::size_t>(nb_spec));
        for (int s = nb_spec - 1; s >= 0; s--) {
            const auto [entry, is_new] = first.try_emplace(nom_key(identifier(s)), s);
            if (!is_new) next[static_cast<std::size_t>(s)] = std::exchange(entry->second, s);
        }
    }
};

void count_in(int species, int family, int group)
{
    const auto s = static_cast<std::size_t>(species);
    no_family[s] = family;
    no_groupe[s] = group;
    nbtot_groupe[static_cast<std::size_t>(family)][static_cast<std::size_t>(group)]++;
}

void assign(int species, int group)
{
    if (identifier(species).find('-') != std::string_view::npos)
        count_in(species, family_of(identifier(species)), group);
    else
        count_in(species, 0, nb_family > 0 ? cupboard() : group);
}

} // namespace

std::string_view nom_key(std::string_view species_identifier)
{
    return before_accession(without_family(species_identifier));
}

std::string assign_groups(std::string_view text, const std::string& file)
{
    for (auto& family : nbtot_groupe)
        family.fill(0);
    std::fill_n(no_groupe.begin(), nb_spec, -1);

    const SpeciesIndex species;
    const auto groups = groups_by_name(nb_groupe - 1, false);
    while (!text.empty()) {
        const std::string_view line = take_line(text);
        const auto [name, wanted_group, has_comma] = split_at_comma(line);
        if (!has_comma)
            return text_format("This line in file %s has no comma:\n%s", file.c_str(),
                               std::string(line).c_str());
        const auto found = species.first.find(name.substr(0, identifier_size - 1));
        if (found == species.first.end()) continue;
        const auto group = groups.find(wanted_group.substr(0, group_name_size - 1));
        for (int s = found->second; s >= 0; s = species.next[static_cast<std::size_t>(s)]) {
            if (no_groupe[static_cast<std::size_t>(s)] != -1)
                return text_format("The species %s appears twice in file %s",
                                   std::string(identifier(s)).c_str(), file.c_str());
            assign(s, group == groups.end() ? cupboard() : group->second);
        }
    }
    for (int s = 0; s < nb_spec; s++)
        if (no_groupe[static_cast<std::size_t>(s)] == -1) count_in(s, 0, cupboard());
    return "";
}

std::string assign_colours(std::string_view text, const std::string& file)
{
    const auto groups = groups_by_name(nb_groupe, true);
    while (!text.empty()) {
        bool ended = false;
        const std::string_view line = take_line(text, &ended);
        const std::size_t comma = line.find(',');
        if (comma == std::string_view::npos || !ended)
            return text_format("There is a line without %s in the file %s:\n\n%s\n\n",
                               comma == std::string_view::npos ? "comma" : "RETURN", file.c_str(),
                               std::string(line).c_str());
        const auto group = groups.find(split_at_comma(line).right);
        const int colour = leading_number(line, gr_max_colors);
        if (group != groups.end() && colour >= 0 && colour < gr_max_colors)
            color_groupe[static_cast<std::size_t>(group->second)] = colour;
    }
    return "";
}

std::string col_text()
{
    std::string text;
    for (int g = 0; g < nb_groupe; g++)
        if (const int colour = color_groupe[static_cast<std::size_t>(g)]; colour != -1)
            text += text_format("%d,%s\n", colour, groupe[g]);
    return text;
}

} // namespace kq
