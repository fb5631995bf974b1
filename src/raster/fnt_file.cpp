// format: reads bitmap font files (.fnt).
#include "raster/fnt_file.h"

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

namespace kq {

namespace {

constexpr std::uint32_t fnt_magic = 0x19590214;
constexpr std::size_t header_size = 4 + 4 + 8 * 2 + 16 + 16;
constexpr std::uintmax_t max_file_size = 16 << 20; // far above any font; more is not worth reading

std::uint32_t uint16_at(std::span<const unsigned char> bytes, std::size_t at)
{
    return bytes[at] | static_cast<std::uint32_t>(bytes[at + 1]) << 8;
}

std::uint32_t uint32_at(std::span<const unsigned char> bytes, std::size_t at)
{
    return uint16_at(bytes, at) | uint16_at(bytes, at + 2) << 16;
}

} // namespace

std::shared_ptr<const GrFont> parse_fnt(std::span<const unsigned char> bytes)
{
    if (bytes.size() < header_size || uint32_at(bytes, 0) != fnt_magic) return nullptr;
    const std::size_t promised = uint32_at(bytes, 4);
    const int width = static_cast<int>(uint16_at(bytes, 8)), height = static_cast<int>(uint16_at(bytes, 10));
    const std::uint32_t lowest = uint16_at(bytes, 12), highest = uint16_at(bytes, 14);
    const bool fixed = uint16_at(bytes, 16) != 0;
    if (width < 1 || width > GrFont::max_size || height < 1 || height > GrFont::max_size) return nullptr;
    if (lowest > highest) return nullptr;

    const std::size_t widths_size = fixed ? 0 : 2 * (highest - lowest + 1);
    if (bytes.size() - header_size < widths_size) return nullptr;
    const auto widths = bytes.subspan(header_size, widths_size);
    auto glyphs = bytes.subspan(header_size + widths_size);
    if (glyphs.size() < promised) return nullptr;
    glyphs = glyphs.first(promised);

    auto font = std::make_shared<GrFont>(width, height);
    for (std::uint32_t c = lowest; c <= highest; c++) {
        const int glyph_width = fixed ? width : static_cast<int>(uint16_at(widths, 2 * (c - lowest)));
        if (glyph_width > width) return nullptr;
        const auto size = static_cast<std::size_t>((glyph_width + 7) / 8) * static_cast<std::size_t>(height);
        if (glyphs.size() < size) return nullptr;
        if (c < 256 && glyph_width > 0)
            font->set_glyph(static_cast<unsigned char>(c), glyph_width, glyphs.first(size));
        glyphs = glyphs.subspan(size);
    }
    return font;
}

std::shared_ptr<const GrFont> read_fnt_file(const std::string& path)
{
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error)) return nullptr; // opening a pipe would wait for ever
    const auto size = std::filesystem::file_size(path, error);
    if (error || size > max_file_size) return nullptr;
    std::ifstream file(path, std::ios::binary);
    std::vector<char> text(size);
    file.read(text.data(), static_cast<std::streamsize>(size));
    if (!file) return nullptr;
    const std::vector<unsigned char> bytes(text.begin(), text.end());
    return parse_fnt(bytes);
}

} // namespace kq
