#include "support/plain_reference.h"

#include "core/consensus_kernel.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

namespace kq::plain {

namespace {

struct ColumnTotals {
    int codes; // residue codes of the type, the unknown class last
    std::vector<std::array<std::uint32_t, 22>> counts;
    std::vector<std::uint32_t> blanks;

    std::span<const std::uint32_t> at(std::size_t p) const
    {
        return std::span(counts[p]).first(static_cast<std::size_t>(codes));
    }
};

// The residue codes, written down a second time.
int code_of(char c, int type)
{
    if (c == '-' || c == '*' || c == '$') return 0;
    if (c == ' ' || c == '?' || c == 'X') return type ? 21 : 16;
    if (c == 'U' && !type) return 1;
    const char* letters = type ? "-ACDEFGHIKLMNPQRSTVWY" : "-TGKCYSBAWRDMHVN";
    const char* found = std::strchr(letters, c);
    return found && c ? static_cast<int>(found - letters) : -1;
}

ColumnTotals count(const Texts& rows, int columns, int type)
{
    std::array<int, 256> code{};
    for (int c = 0; c < 256; c++)
        code[static_cast<std::size_t>(c)] = code_of(static_cast<char>(c), type);
    const auto length = static_cast<std::size_t>(columns);
    ColumnTotals totals{type ? 22 : 17, {}, std::vector<std::uint32_t>(length)};
    totals.counts.resize(length);
    for (const auto row : rows)
        for (std::size_t p = 0; p < length; p++) {
            const char c = p < row.size() ? row[p] : ' ';
            const int k = code[static_cast<unsigned char>(c)];
            if (k >= 0) totals.counts[p][static_cast<std::size_t>(k)]++;
            if (c == ' ') totals.blanks[p]++;
        }
    return totals;
}

} // namespace

std::string consensus_line(const Texts& rows, int columns, int type)
{
    const auto totals = count(rows, columns, type);
    std::string line;
    for (std::size_t p = 0; p < totals.counts.size(); p++)
        line += consensus_mark(totals.at(p), static_cast<std::uint32_t>(rows.size()));
    return line;
}

Consensus ensemble_consensus(const Texts& rows, int columns, int type, const char* letters)
{
    const auto totals = count(rows, columns, type);
    Consensus result;
    for (std::size_t p = 0; p < totals.counts.size(); p++) {
        const auto found = column_consensus(totals.at(p), totals.blanks[p],
                                            static_cast<std::uint32_t>(rows.size()), letters);
        result.characters += found.character;
        result.levels.push_back(found.level);
    }
    return result;
}

std::vector<unsigned char> hidden_columns(const Texts& rows, int columns)
{
    std::vector<unsigned char> hidden(static_cast<std::size_t>(columns), 255);
    for (const auto row : rows)
        for (std::size_t p = 0; p < std::min(row.size(), hidden.size()); p++)
            if (row[p] != '*' && row[p] != ' ' && row[p] != '$' && row[p] != '-') hidden[p] = 0;
    return hidden;
}

Differences differences_beside(std::string_view a, std::string_view b,
                               const std::vector<unsigned char>& hidden, int position)
{
    Differences found;
    int since = 0; // shown columns since the last difference, of either side
    for (int p = 0; p < std::ssize(hidden); p++) {
        const auto i = static_cast<std::size_t>(p);
        if (hidden[i] != 0) continue;
        since++;
        const char x = i < a.size() ? a[i] : ' ', y = i < b.size() ? b[i] : ' ';
        if (x == y || x == ' ' || y == ' ') continue;
        auto& side = p < position ? found.left : found.right;
        if (side.count++ > 0) side.spacing += since;
        since = 0;
    }
    for (auto* side : {&found.left, &found.right})
        side->spacing = side->count < 2 ? 0 : side->spacing / (side->count - 1);
    return found;
}

void compact(std::span<char> region, bool to_the_left)
{
    const auto end = static_cast<std::ptrdiff_t>(region.size());
    const std::ptrdiff_t step = to_the_left ? 1 : -1;
    std::ptrdiff_t free = to_the_left ? 0 : end - 1;
    for (auto from = free; from >= 0 && from < end; from += step) {
        const char c = region[static_cast<std::size_t>(from)];
        if (c == '*' || c == '-' || c == ' ') continue;
        region[static_cast<std::size_t>(free)] = c;
        free += step;
    }
    for (; free >= 0 && free < end; free += step)
        region[static_cast<std::size_t>(free)] = '*';
}

} // namespace kq::plain
