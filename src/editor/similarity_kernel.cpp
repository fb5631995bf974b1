// kernel: where in a row a pattern of residues fits best.
//
// A row is squeezed first: its residues without the gaps, so that the characters that the pattern meets from
// one start on are neighbours. The scores of a block of starts then grow together, one pattern character at a
// time.
#include "editor/similarity_kernel.h"

#include "core/vector_clones.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <vector>

namespace kq {

namespace {

constexpr std::size_t block_starts = 128;
using Scores = std::array<std::uint8_t, block_starts>; // of a block of starts

// Pattern characters between two looks at whether a block can still hold a better start.
constexpr std::size_t stretch = 8;

// The residues of a row from the first start asked for on, then zeros, which no pattern character equals, for
// a block and a pattern. The first `starts` of them are start positions.
struct Squeezed {
    std::vector<char> residues;
    std::size_t starts = 0;

    // Room for a row, so that nothing is allocated later.
    void reserve(std::size_t columns, std::size_t pattern)
    {
        residues.resize(columns + block_starts + pattern);
    }
};

// Appends the residues of a text at `to`; the end.
char* squeeze_text(std::string_view text, char* to)
{
    for (const char c : text) {
        *to = c;
        to += !is_gap_in_search(c);
    }
    return to;
}

void squeeze(std::string_view row, StartRange starts, std::size_t pattern, Squeezed& squeezed)
{
    const auto size = static_cast<int>(row.size());
    const auto first = static_cast<std::size_t>(std::clamp(starts.first, 0, size));
    const auto last = std::max(static_cast<std::size_t>(std::clamp(starts.last, 0, size)), first);
    char* const begin = squeezed.residues.data();
    char* end = squeeze_text(row.substr(first, last - first), begin);
    squeezed.starts = static_cast<std::size_t>(end - begin);
    // The last start meets no more than a pattern's length of residues.
    char* const enough = end + pattern;
    for (std::size_t p = last; p < row.size() && end < enough; p++) {
        *end = row[p];
        end += !is_gap_in_search(row[p]);
    }
    std::memset(end, 0, block_starts + pattern);
}

// The column of the start with this index.
int column_of(std::string_view row, StartRange starts, std::size_t start)
{
    int p = std::max(starts.first, 0);
    for (;; p++) {
        if (is_gap_in_search(row[static_cast<std::size_t>(p)])) continue;
        if (start == 0) return p;
        start--;
    }
}

// Adds to the scores of a block where `text`, from each of its starts on, holds the pattern's characters.
KQ_VECTOR_CLONES
void add_matches(const char* text, const char* pattern, std::size_t length, Scores& scores)
{
    Scores sums = scores;
    for (std::size_t k = 0; k < length; k++)
        for (std::size_t j = 0; j < block_starts; j++)
            sums[j] = static_cast<std::uint8_t>(sums[j] + (text[k + j] == pattern[k]));
    scores = sums;
}

KQ_VECTOR_CLONES
std::uint8_t highest(const Scores& scores)
{
    std::uint8_t most = 0;
    for (std::size_t j = 0; j < block_starts; j++)
        most = std::max(most, scores[j]);
    return most;
}

// The best start, the first of several; a negative score when there is none.
struct BestStart {
    int score = -1;
    std::size_t start = 0;
};

BestStart best_start(const Squeezed& squeezed, std::string_view pattern)
{
    BestStart best;
    const int length = static_cast<int>(pattern.size());
    for (std::size_t from = 0; from < squeezed.starts; from += block_starts) {
        Scores scores{};
        int most = 0;
        // Stops where even matches to the pattern's end would not be better.
        for (std::size_t k = 0; k < pattern.size(); k += stretch) {
            const auto count = std::min(stretch, pattern.size() - k);
            add_matches(squeezed.residues.data() + from + k, pattern.data() + k, count, scores);
            most = highest(scores);
            if (most + length - static_cast<int>(k + count) <= best.score) break;
        }
        if (most <= best.score) continue;
        for (std::size_t j = 0; j < std::min(block_starts, squeezed.starts - from); j++)
            if (scores[j] > best.score) best = {scores[j], from + j};
    }
    return best;
}

} // namespace

std::string residues_from(std::string_view row, int position, int most)
{
    std::string residues;
    for (auto p = static_cast<std::size_t>(std::max(position, 0)); p < row.size(); p++) {
        if (std::ssize(residues) >= most) break;
        if (!is_gap_in_search(row[p])) residues += row[p];
    }
    return residues;
}

void rank_hit(std::span<SimilarityHit> ranking, const SimilarityHit& hit)
{
    if (ranking.empty() || hit.score <= ranking.back().score) return;
    const auto place =
        std::ranges::find_if(ranking, [&](const SimilarityHit& ranked) { return ranked.score < hit.score; });
    std::move_backward(place, ranking.end() - 1, ranking.end());
    *place = hit;
}

void rank_positions(std::string_view row, std::string_view pattern, StartRange starts,
                    std::span<SimilarityHit> ranking)
{
    std::ranges::fill(ranking, SimilarityHit{});
    Squeezed squeezed;
    squeezed.reserve(row.size(), pattern.size());
    squeeze(row, starts, pattern.size(), squeezed);
    for (std::size_t from = 0; from < squeezed.starts; from += block_starts) {
        Scores scores{};
        add_matches(squeezed.residues.data() + from, pattern.data(), pattern.size(), scores);
        for (std::size_t j = 0; j < std::min(block_starts, squeezed.starts - from); j++)
            rank_hit(ranking, {.score = scores[j], .position = static_cast<int>(from + j)});
    }
    for (auto& hit : ranking)
        if (hit.score >= 0) hit.position = column_of(row, starts, static_cast<std::size_t>(hit.position));
}

void best_positions(std::span<const std::string_view> rows, std::string_view pattern, StartRange starts,
                    std::span<SimilarityHit> best)
{
    // Slices of rows with memory of their own, had before any thread starts.
    constexpr std::size_t slices = 64;
    std::size_t longest = 0;
    for (const auto row : rows)
        longest = std::max(longest, row.size());
    std::vector<Squeezed> squeezed(std::min(slices, rows.size()));
    for (auto& slice : squeezed)
        slice.reserve(longest, pattern.size());

#pragma omp parallel for schedule(dynamic)
    for (std::size_t slice = 0; slice < squeezed.size(); slice++)
        for (std::size_t r = slice; r < rows.size(); r += squeezed.size()) {
            squeeze(rows[r], starts, pattern.size(), squeezed[slice]);
            const auto found = best_start(squeezed[slice], pattern);
            best[r].score = found.score;
            best[r].position = found.score < 0 ? -1 : column_of(rows[r], starts, found.start);
        }
}

} // namespace kq
