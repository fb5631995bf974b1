// kernel: the order that numbers typed beside a list of species ask for.
#include "taxonomy/species_order.h"

namespace kq {

std::vector<int> reordered(std::span<const int> numbers)
{
    constexpr int free_place = -1;
    std::vector<int> places(numbers.size(), free_place), others;
    for (std::size_t i = 0; i < numbers.size(); i++) {
        const int number = numbers[i];
        if (number == 0) continue;
        const bool wanted = number > 0 && static_cast<std::size_t>(number) <= places.size();
        int* const place = wanted ? &places[static_cast<std::size_t>(number) - 1] : nullptr;
        if (place && *place == free_place)
            *place = static_cast<int>(i);
        else
            others.push_back(static_cast<int>(i));
    }
    std::vector<int> order;
    auto next = others.begin();
    for (const int entry : places) {
        if (entry != free_place)
            order.push_back(entry);
        else if (next != others.end())
            order.push_back(*next++);
    }
    return order;
}

} // namespace kq
