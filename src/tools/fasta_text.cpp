// kernel: the sequences that outside programs get.
#include "tools/fasta_text.h"

#include <array>
#include <cstddef>

namespace kq {

namespace {

constexpr auto places_taken = [] {
    std::array<unsigned char, 256> places{};
    places.fill(1);
    for (const char gap : {'*', '-', '$', ' ', '?'})
        places[static_cast<unsigned char>(gap)] = 0;
    return places;
}();

} // namespace

void append_fasta(std::string& file, int species, std::string_view text, int minimum)
{
    const std::size_t before = file.size();
    file += ">lcl|" + std::to_string(species) + '\n';
    const std::size_t first = file.size();
    file.resize(first + text.size() + 1);
    // Every character is written to the next free place, which only one that is sent takes up.
    char* free = file.data() + first;
    for (const char c : text) {
        *free = c;
        free += places_taken[static_cast<unsigned char>(c)];
    }
    const auto sent = static_cast<std::size_t>(free - (file.data() + first));
    *free = '\n';
    file.resize(sent < static_cast<std::size_t>(minimum) ? before : first + sent + 1);
}

} // namespace kq
