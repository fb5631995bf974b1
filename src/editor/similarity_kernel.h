// kernel: where in a row a pattern of residues fits best.
//
// Blanks and "*" (is_editable_gap) are gaps: they are passed over in the row, and none of them starts a
// comparison. "-" and "$" count as residues. A pattern has no NUL and at most 255 characters. The score of a
// start position is the number of pattern characters that equal (byte by byte) the row's characters from
// there on, gaps passed over, until the pattern or the row ends. Positions are 0-based columns.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

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

// Whether a row is aligned by its best hit without a question: the hit is near, or much better than the next.
inline constexpr bool hit_is_clear(int distance, int score, int next_score)
{
    return distance < 10 || next_score + 4 < score;
}

// The first `most` residues of a row from a position on, without gaps.
std::string residues_from(std::string_view row, int position, int most);

// Puts an entry into a ranking when its score is greater than that of the last place; of equal scores the
// earlier one stays before.
void rank_hit(std::span<SimilarityHit> ranking, const SimilarityHit& hit);

// A row made ready for searches: its residues without the gaps, so that the characters that a pattern meets
// from one start on are neighbours. The row's text has to stay where it is.
class SearchedRow {
public:
    SearchedRow() = default;
    explicit SearchedRow(std::string_view row)
    {
        reserve(row.size());
        assign(row);
    }
    void reserve(std::size_t columns); // so that assign allocates nothing for rows up to this length
    void assign(std::string_view row);

    // The best start positions, the leftmost first among equal scores; ranking.size() of them, filled up with
    // hits of score -1.
    void rank(std::string_view pattern, StartRange starts, std::span<SimilarityHit> ranking) const;

private:
    std::size_t starts_before(int column) const;
    int column_of(std::size_t start) const;

    std::string_view row_;
    std::size_t count_ = 0;      // residues
    std::vector<char> residues_; // these, then zeros, which no pattern character equals
    // The way from columns to residues and back: how many residues stand before each chunk of columns.
    std::vector<std::size_t> before_chunk_;
    std::size_t chunks_ = 0;
};

// The best start position of each row, as the first place of SearchedRow::rank has it; `species` is left
// alone. Uses all cores; the results do not depend on their number. rows.size() == best.size().
void best_positions(std::span<const std::string_view> rows, std::string_view pattern, StartRange starts,
                    std::span<SimilarityHit> best);

} // namespace kq
