// format: reads the table of hits that blastall writes.
#include "tools/blast_table.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <optional>
#include <type_traits>

namespace kq {

namespace {

// The columns of the table; those in between do not matter.
enum Column : std::size_t {
    query_column = 0,
    subject_column = 1,
    identity_column = 2,
    length_column = 3,
    evalue_column = 10,
    score_column = 11,
    columns = 12
};

using Fields = std::array<std::string_view, columns>;

std::optional<Fields> split(std::string_view line)
{
    constexpr std::string_view blanks = " \t\r";
    Fields found;
    for (auto& field : found) {
        line.remove_prefix(std::min(line.find_first_not_of(blanks), line.size()));
        field = line.substr(0, line.find_first_of(blanks));
        if (field.empty()) return std::nullopt;
        line.remove_prefix(field.size());
    }
    if (line.find_first_not_of(blanks) != std::string_view::npos) return std::nullopt;
    return found;
}

// The whole field as a number that is not negative, else nothing.
template <class Number>
std::optional<Number> number(std::string_view field)
{
    Number value{};
    const char* const end = field.data() + field.size();
    const auto [stop, error] = std::from_chars(field.data(), end, value);
    if (error != std::errc{} || stop != end || value < 0) return std::nullopt;
    if constexpr (std::is_floating_point_v<Number>)
        if (!std::isfinite(value)) return std::nullopt;
    return value;
}

std::optional<int> species_number(std::string_view field)
{
    constexpr std::string_view prefix = "lcl|";
    if (!field.starts_with(prefix)) return std::nullopt;
    return number<int>(field.substr(prefix.size()));
}

std::optional<BlastHit> hit_of(std::string_view line, int species)
{
    const auto fields = split(line);
    if (!fields) return std::nullopt;
    const auto& field = *fields;
    for (std::size_t i = length_column; i < evalue_column; i++)
        if (!number<int>(field[i])) return std::nullopt;
    const auto query = species_number(field[query_column]), subject = species_number(field[subject_column]);
    const auto identity = number<double>(field[identity_column]);
    const auto expected = number<double>(field[evalue_column]);
    const auto score = number<double>(field[score_column]);
    if (!query || !subject || *subject >= species || !identity || !expected || !score) return std::nullopt;
    return BlastHit{.species = *subject,
                    .identity = *identity,
                    .length = *number<int>(field[length_column]),
                    .evalue = *expected,
                    .score = *score};
}

} // namespace

BlastTable read_blast_table(std::string_view text, int species)
{
    BlastTable table;
    int last = -1;
    for (int line = 1; !text.empty(); line++) {
        const auto end = text.find('\n');
        const auto hit = hit_of(text.substr(0, end), species);
        if (!hit) {
            table.unread_line = line;
            break;
        }
        if (hit->species != last) table.hits.push_back(*hit);
        last = hit->species;
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    }
    return table;
}

} // namespace kq
