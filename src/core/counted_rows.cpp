// model: the sets of rows that column counts are kept for.
#include "core/counted_rows.h"

namespace kq {

CountedText counted_text(int species)
{
    const auto text = row(species);
    return {text.data(), static_cast<int>(text.size())};
}

std::vector<CountedText> texts_of(std::span<const int> species)
{
    std::vector<CountedText> texts;
    texts.reserve(species.size());
    for (const int i : species)
        texts.push_back(counted_text(i));
    return texts;
}

std::vector<CountedText> texts_of(CountedSet set, int ensemble)
{
    std::vector<CountedText> texts;
    for_rows_of(set, ensemble, [&texts](int species) { texts.push_back(counted_text(species)); });
    return texts;
}

} // namespace kq
