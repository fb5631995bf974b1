// model: the species and positions that an analysis works with.
#include "analysis/analysed.h"

namespace kq {

constinit std::array<int, max_species> cor_auto{};
constinit int nb_spec_auto = 0;
constinit std::vector<unsigned char> retain;
constinit int nb_nuc_keep = 0;

std::span<const int> analysed_species()
{
    return std::span<const int>(cor_auto).first(static_cast<std::size_t>(nb_spec_auto));
}

std::vector<int> kept_positions()
{
    std::vector<int> positions;
    positions.reserve(static_cast<std::size_t>(nb_nuc_keep));
    for (int p = 0; retain[static_cast<std::size_t>(p)] != end_of_positions; p++)
        if (retain[static_cast<std::size_t>(p)] == position_kept) positions.push_back(p);
    return positions;
}

void kept_characters(int species, std::span<const int> positions, std::string& text)
{
    const auto characters = row(species);
    text.assign(positions.size(), ' ');
    for (std::size_t i = 0; i < positions.size(); i++) {
        const auto p = static_cast<std::size_t>(positions[i]);
        if (p >= characters.size()) break; // the positions ascend
        text[i] = characters[p];
    }
}

void analysed_reset()
{
    nb_spec_auto = nb_nuc_keep = 0;
    retain = {};
}

} // namespace kq
