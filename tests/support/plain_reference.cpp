#include "support/plain_reference.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace kq::plain {

namespace {

using Counts = std::array<int, 25>;

struct ColumnTotals {
    std::vector<Counts> codes;
    std::vector<int> blanks;
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
    ColumnTotals totals{std::vector<Counts>(length), std::vector<int>(length)};
    for (const auto row : rows)
        for (std::size_t p = 0; p < length; p++) {
            const char c = p < row.size() ? row[p] : ' ';
            const int k = code[static_cast<unsigned char>(c)];
            if (k >= 0) totals.codes[p][static_cast<std::size_t>(k)]++;
            if (c == ' ') totals.blanks[p]++;
        }
    return totals;
}

char line_mark(const Counts& counts, int n, int unknown)
{
    const int m = *std::max_element(counts.begin(), counts.end()), k = n - unknown;
    if (k == 0) return ' ';
    if (m == k) return '*';
    const int q = 10 * m / k;
    if (q == 2 || q == 3) return '.';
    if (q >= 4 && q <= 9) return '*';
    return ' ';
}

} // namespace

std::string consensus_line(const Texts& rows, int columns, int type)
{
    const auto totals = count(rows, columns, type);
    std::string line;
    for (const auto& counts : totals.codes)
        line += line_mark(counts, static_cast<int>(rows.size()), counts[type ? 21 : 16]);
    return line;
}

Consensus ensemble_consensus(const Texts& rows, int columns, int type, const char* letters)
{
    const auto totals = count(rows, columns, type);
    const int n = static_cast<int>(rows.size());
    const auto last = std::strlen(letters) - 1;
    Consensus result;
    for (std::size_t p = 0; p < static_cast<std::size_t>(columns); p++) {
        const auto& counts = totals.codes[p];
        const int S = totals.blanks[p], G = counts[0], X = counts[last];
        char c = ' ';
        int v = 10;
        if (n > 0 && S + G == n) {
            c = S <= G ? '*' : ' ';
        } else if (n > 0 && X + G == n) {
            c = '*';
            v = 10 * G / (G + X - S);
        } else if (n > 0) {
            std::size_t b1 = 0, b2 = 0;
            int c1 = 0, c2 = 0;
            for (std::size_t k = 0; k <= last; k++)
                if (counts[k] > c1) {
                    b2 = b1, c2 = c1;
                    b1 = k, c1 = counts[k];
                }
            if (10 * X / n > 8) {
                c = letters[b2], v = 1;
            } else if (letters[b1] != ' ') {
                c = letters[b1], v = 10 * c1 / (n - X);
            } else {
                c = letters[b2], v = 10 * c2 / (n - X);
            }
        }
        result.characters += c;
        result.levels.push_back(static_cast<unsigned char>(std::min(9, 10 - v)));
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

std::string compacted(std::string_view region)
{
    std::string result;
    for (const char c : region)
        if (c != '*' && c != '-' && c != ' ') result += c;
    result.resize(region.size(), '*');
    return result;
}

} // namespace kq::plain
