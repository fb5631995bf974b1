// kernel: where in a row a pattern of residues fits best.
//
// Blanks and "*" are gaps: they are passed over in the row, and none of them starts a comparison. "-" and "$"
// count as residues. A pattern has no NUL and at most 255 characters. The score of a start position is the
// number of pattern characters that equal (byte by byte) the row's characters from there on, gaps passed
// over, until the pattern or the row ends. Positions are 0-based columns.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace kq {

struct SimilarityHit {
    int score = -1; // -1 = no start position
    int position = -1;
    int species = -1; // where hits of several rows are ranked
    bool operator==(const SimilarityHit&) const = default;
};

// Start positions first <= p < last. What lies outside of the row is no start position.
struct StartRange {
    int first = 0, last = 0;
};

inline constexpr bool is_gap_in_search(char c)
{
    return c == ' ' || c == '*';
}

// The first `most` residues of a row from a position on, without gaps.
std::string residues_from(std::string_view row, int position, int most);

// Puts an entry into a ranking when its score is greater than that of the last place; of equal scores the
// earlier one stays before.
void rank_hit(std::span<SimilarityHit> ranking, const SimilarityHit& hit);

// The best start positions of a row, the leftmost first among equal scores; ranking.size() of them, filled up
// with hits of score -1.
void rank_positions(std::string_view row, std::string_view pattern, StartRange starts,
                    std::span<SimilarityHit> ranking);

// The best start position of each row, as the first place of rank_positions has it; `species` is left alone.
// Uses all cores; the results do not depend on their number. rows.size() == best.size().
void best_positions(std::span<const std::string_view> rows, std::string_view pattern, StartRange starts,
                    std::span<SimilarityHit> best);

} // namespace kq
