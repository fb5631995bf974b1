// screen: selecting species by the completeness of their sequences.
#include "taxonomy/partial_selection.h"

#include "core/store.h"
#include "screen/dialogs.h"
#include "screen/strings.h"
#include "taxonomy/selection.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace kq {

namespace {

constexpr std::string_view missing_arn = " ?XRYMWSKVHDBN*-", missing_prot = " ?BZX*-";
constexpr std::array thresholds = {0,  2,  4,  5,  6,  8,  10, 15, 20, 25, 30, 35, 40,
                                   45, 50, 55, 60, 65, 70, 75, 80, 85, 90, 95, 98};
constexpr int list_line = 5, list_width = 55;

constexpr std::array<unsigned char, 256> table_of(std::string_view characters)
{
    std::array<unsigned char, 256> table{};
    for (const char c : characters)
        table[static_cast<unsigned char>(c)] = 1;
    return table;
}
constexpr auto is_missing_arn = table_of(missing_arn), is_missing_prot = table_of(missing_prot);

bool within(int percentage, int threshold, int direction)
{
    return direction == 0 ? percentage <= threshold : percentage > threshold;
}

} // namespace

int missing_percentage(int species)
{
    if (nb_nuc_tot == 0) return 0;
    const auto& is_missing = type_seq == 1 ? is_missing_prot : is_missing_arn;
    const auto text = row(species);
    const auto columns = text.first(std::min(text.size(), static_cast<std::size_t>(nb_nuc_tot)));
    long missing = nb_nuc_tot - std::ssize(columns);
    for (const char c : columns)
        missing += is_missing[static_cast<unsigned char>(c)];
    return static_cast<int>(missing * 100 / nb_nuc_tot);
}

void select_partial_seq(int direction)
{
    struct Candidate {
        int species, percentage;
    };
    std::vector<Candidate> candidates;
    for (const int species : working_list())
        if (selectable(species)) candidates.push_back({species, missing_percentage(species)});

    const std::string_view missing = type_seq == 1 ? missing_prot : missing_arn;
    std::vector<std::string> labels;
    for (const int threshold : thresholds) {
        const auto count = std::ranges::count_if(candidates, [&](const Candidate& candidate) {
            return within(candidate.percentage, threshold, direction);
        });
        labels.push_back(text_format("Amount of \"%s\" %s %2d%c ----> %5d species", missing.data(),
                                     direction == 0 ? "<=" : ">", threshold, '%', static_cast<int>(count)));
    }
    const std::vector<std::string_view> shown(labels.begin(), labels.end());
    const int choice = _choice_option(list_line, 0, shown, list_width);
    if (choice == escaped) return;
    for (const auto& [species, percentage] : candidates)
        if (within(percentage, thresholds[static_cast<std::size_t>(choice)], direction))
            select_species(species);
}

} // namespace kq
