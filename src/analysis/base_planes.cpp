// kernel: aligned nucleic acids as bit planes.
#include "analysis/base_planes.h"

#include "core/residues.h"

#include <algorithm>

namespace kq {

namespace {

// What a character sets, one bit for each plane.
enum : std::uint8_t { base_bit = 1, gap_bit = 2, purine_bit = 4, keto_bit = 8, uncoded_bit = 16 };

std::uint8_t bits_of_code(int code)
{
    switch (code) {
    case code_gap:
        return gap_bit;
    case 8:
        return base_bit | purine_bit;
    case 4:
        return base_bit;
    case 2:
        return base_bit | purine_bit | keto_bit;
    case 1:
        return base_bit | keto_bit;
    default:
        return uncoded_bit;
    }
}

BitsOfCharacter bits_of_characters(std::string_view unknown)
{
    BitsOfCharacter bits;
    for (std::size_t c = 0; c < bits.size(); c++)
        bits[c] = bits_of_code(arn_codes[c]);
    for (const char c : unknown)
        bits[static_cast<unsigned char>(c)] = 0;
    return bits;
}

struct Words {
    std::uint64_t base = 0, gap = 0, purine = 0, keto = 0, uncoded = 0;
};

// At most 64 characters.
Words pack(std::span<const char> characters, const BitsOfCharacter& bits_of_each)
{
    Words words;
    for (std::size_t first = 0; first < characters.size(); first += 8) {
        const auto eight = characters.subspan(first, std::min<std::size_t>(8, characters.size() - first));
        const auto bits = bits_of(eight, bits_of_each);
        words.base |= lowest_bits(bits) << first;
        words.gap |= lowest_bits(bits >> 1) << first;
        words.purine |= lowest_bits(bits >> 2) << first;
        words.keto |= lowest_bits(bits >> 3) << first;
        words.uncoded |= lowest_bits(bits >> 4) << first;
    }
    return words;
}

} // namespace

BasePlanes::BasePlanes(int species, int positions)
    : blocks_of_species_(blocks_of_positions(positions))
    , blocks_(std::make_unique_for_overwrite<PlaneBlock[]>(static_cast<std::size_t>(species) *
                                                           blocks_of_species_))
    , uncoded_(static_cast<std::size_t>(species))
{
}

void BasePlanes::set(int species, std::span<const char> characters, std::string_view unknown)
{
    const auto bits = bits_of_characters(unknown);
    const std::span blocks(blocks_.get() + static_cast<std::size_t>(species) * blocks_of_species_,
                           blocks_of_species_);
    auto& uncoded = uncoded_[static_cast<std::size_t>(species)];
    uncoded.clear();
    for (std::size_t word = 0; word < blocks.size() * words_of_plane; word++) {
        const auto first = std::min(word * 64, characters.size());
        const auto packed =
            pack(characters.subspan(first, std::min<std::size_t>(64, characters.size() - first)), bits);
        auto& block = blocks[word / words_of_plane];
        const auto w = word % words_of_plane;
        block.base[w] = packed.base;
        block.gap[w] = packed.gap;
        block.purine[w] = packed.purine;
        block.keto[w] = packed.keto;
        if (packed.uncoded == 0) continue;
        uncoded.resize(blocks.size() * words_of_plane);
        uncoded[word] = packed.uncoded;
        any_uncoded_ = true;
    }
}

} // namespace kq
