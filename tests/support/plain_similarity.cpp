#include "support/plain_similarity.h"

#include <algorithm>

namespace kq::plain {

namespace {

bool skipped(char c)
{
    return c == ' ' || c == '*';
}

int score_at(std::string_view row, std::string_view pattern, std::size_t p)
{
    int score = 0;
    for (std::size_t k = 0; k < pattern.size() && p < row.size(); p++) {
        if (skipped(row[p])) continue;
        score += row[p] == pattern[k++];
    }
    return score;
}

} // namespace

std::vector<Hit> similar_positions(std::string_view row, std::string_view pattern, int first, int last,
                                   int places)
{
    std::vector<Hit> ranking(static_cast<std::size_t>(places), {-1, -1});
    if (places == 0) return ranking;
    for (int p = std::max(first, 0); p < std::min(last, static_cast<int>(row.size())); p++) {
        if (skipped(row[static_cast<std::size_t>(p)])) continue;
        const int score = score_at(row, pattern, static_cast<std::size_t>(p));
        std::size_t place = ranking.size();
        while (place > 0 && ranking[place - 1].score < score)
            place--;
        if (place == ranking.size()) continue;
        ranking.pop_back();
        ranking.insert(ranking.begin() + static_cast<std::ptrdiff_t>(place), {score, p});
    }
    return ranking;
}

std::string random_text(std::mt19937& random, std::string_view letters, int length)
{
    std::string text;
    for (int i = 0; i < length; i++)
        text += letters[random() % letters.size()];
    return text;
}

} // namespace kq::plain
