// kernel: taking over the gaps that an alignment program puts between residues.
#include "tools/gap_pattern.h"

#include "tools/eight_characters.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace kq {

namespace {

// Of one that is a letter, and any other.
constexpr bool same_letter(char letter, char other)
{
    return ((letter ^ other) & ~case_bit) == 0;
}

} // namespace

bool has_residues(std::string_view aligned, std::string_view residues)
{
    constexpr std::size_t word = sizeof(std::uint64_t);
    const auto next_is = [&](char c) {
        if (c == '-') return true;
        if (residues.empty() || !same_letter(c, residues.front())) return false;
        residues.remove_prefix(1);
        return true;
    };
    while (aligned.size() >= word) {
        const std::uint64_t characters = eight_at(aligned.data());
        if (may_be_letters(characters) && residues.size() >= word) {
            if ((characters ^ eight_at(residues.data())) & ~eight_times(case_bit)) return false;
            residues.remove_prefix(word);
        } else if (characters != eight_times('-') && !std::ranges::all_of(aligned.substr(0, word), next_is)) {
            return false;
        }
        aligned.remove_prefix(word);
    }
    return std::ranges::all_of(aligned, next_is) && residues.empty();
}

void lay_out(std::span<char> region, std::string_view aligned, std::string_view residues)
{
    std::ranges::fill(region, '*');
    for (std::size_t first = 0; (first = aligned.find_first_not_of('-', first)) != std::string_view::npos;) {
        const std::size_t end = std::min(aligned.find('-', first), aligned.size());
        std::ranges::copy(residues.substr(0, end - first), region.subspan(first).begin());
        residues.remove_prefix(end - first);
        first = end;
    }
}

} // namespace kq
