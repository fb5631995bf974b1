// kernel: where in a row a pattern of residues fits best.
#include "editor/similarity_kernel.h"

#include "core/residues.h"
#include "core/vector_clones.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

namespace kq {

namespace {

// The scores of a block of starts grow together, one pattern character at a time.
constexpr std::size_t block_starts = 128;
using Scores = std::array<std::uint8_t, block_starts>;
// Pattern characters between two looks at whether a block can still hold a better start.
constexpr std::size_t stretch = 8;
constexpr std::size_t longest_pattern = 255;
constexpr std::size_t chunk_columns = 64;

// Adds to the scores of a block where `text`, from each of its starts on, holds the characters of a pattern;
// the highest score.
KQ_VECTOR_CLONES
int add_matches(const char* text, const char* pattern, std::size_t length, Scores& scores)
{
    Scores sums = scores;
    for (std::size_t k = 0; k < length; k++)
        for (std::size_t j = 0; j < block_starts; j++)
            sums[j] = static_cast<std::uint8_t>(sums[j] + (text[k + j] == pattern[k]));
    scores = sums;
    std::uint8_t most = 0;
    for (std::size_t j = 0; j < block_starts; j++)
        most = std::max(most, sums[j]);
    return most;
}

} // namespace

std::string residues_from(std::string_view row, int position, int most)
{
    std::string residues;
    for (auto p = static_cast<std::size_t>(std::max(position, 0)); p < row.size(); p++) {
        if (std::ssize(residues) >= most) break;
        if (!is_editable_gap(row[p])) residues += row[p];
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

// ---- one row

void SearchedRow::reserve(std::size_t columns)
{
    residues_.resize(std::max(residues_.size(), columns + block_starts + longest_pattern));
    before_chunk_.resize(std::max(before_chunk_.size(), columns / chunk_columns + 1));
}

void SearchedRow::assign(std::string_view row)
{
    reserve(row.size());
    row_ = row;
    chunks_ = 0;
    char* end = residues_.data();
    for (std::size_t p = 0; p < row.size(); p += chunk_columns) {
        before_chunk_[chunks_++] = static_cast<std::size_t>(end - residues_.data());
        for (const char c : row.substr(p, chunk_columns)) {
            *end = c;
            end += !is_editable_gap(c);
        }
    }
    count_ = static_cast<std::size_t>(end - residues_.data());
    std::memset(end, 0, block_starts + longest_pattern);
}

// Residues before a column, which may lie outside of the row.
std::size_t SearchedRow::starts_before(int column) const
{
    if (column <= 0) return 0;
    const auto p = static_cast<std::size_t>(column);
    if (p >= row_.size()) return count_;
    const auto chunk = p / chunk_columns;
    std::size_t before = before_chunk_[chunk];
    for (const char c : row_.substr(chunk * chunk_columns, p % chunk_columns))
        before += !is_editable_gap(c);
    return before;
}

int SearchedRow::column_of(std::size_t start) const
{
    const auto begin = before_chunk_.begin();
    const auto chunk = std::upper_bound(begin, begin + static_cast<std::ptrdiff_t>(chunks_), start) - 1;
    std::size_t p = static_cast<std::size_t>(chunk - begin) * chunk_columns;
    for (std::size_t before = *chunk; is_editable_gap(row_[p]) || before < start; p++)
        before += !is_editable_gap(row_[p]);
    return static_cast<int>(p);
}

void SearchedRow::rank(std::string_view pattern, StartRange starts, std::span<SimilarityHit> ranking) const
{
    for (auto& hit : ranking)
        hit.score = hit.position = -1;
    if (ranking.empty()) return;
    const int length = static_cast<int>(pattern.size());
    const std::size_t last = starts_before(starts.last);
    for (std::size_t from = starts_before(starts.first); from < last; from += block_starts) {
        Scores scores{};
        const auto enters = [&ranking](int score) { return score > ranking.back().score; };
        int most = 0;
        // Stops where even matches to the pattern's end would not be enough.
        std::size_t k = 0;
        for (; k < pattern.size() && enters(most + length - static_cast<int>(k)); k += stretch)
            most = add_matches(residues_.data() + from + k, pattern.data() + k,
                               std::min(stretch, pattern.size() - k), scores);
        if (k < pattern.size() || !enters(most)) continue;
        for (std::size_t j = 0; j < std::min(block_starts, last - from); j++)
            if (enters(scores[j]))
                rank_hit(ranking, {.score = scores[j], .position = static_cast<int>(from + j)});
    }
    for (auto& hit : ranking)
        if (hit.score >= 0) hit.position = column_of(static_cast<std::size_t>(hit.position));
}

// ---- many rows

void best_positions(std::span<const std::string_view> rows, std::string_view pattern, StartRange starts,
                    std::span<SimilarityHit> best)
{
    // Slices of rows with memory of their own, had before any thread starts.
    constexpr std::size_t slices = 64;
    std::size_t longest = 0;
    for (const auto row : rows)
        longest = std::max(longest, row.size());
    std::vector<SearchedRow> searched(std::min(slices, rows.size()));
    for (auto& slice : searched)
        slice.reserve(longest);

#pragma omp parallel for schedule(dynamic)
    for (std::size_t slice = 0; slice < searched.size(); slice++)
        for (std::size_t r = slice; r < rows.size(); r += searched.size()) {
            SimilarityHit hit;
            searched[slice].assign(rows[r]);
            searched[slice].rank(pattern, starts, {&hit, 1});
            best[r].score = hit.score;
            best[r].position = hit.position;
        }
}

} // namespace kq
