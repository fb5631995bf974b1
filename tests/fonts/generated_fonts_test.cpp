// The generated fonts, as the program reads them.
#include "raster/font.h"
#include "raster/grx.h"
#include "raster/pc_fonts.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <string>

namespace kq {
namespace {

std::string font_path(const std::string& name)
{
    return KQ_BUILD_DIRECTORY "/share/fonts/" + name + ".fnt";
}

// One string a glyph: its pixels row by row, '#' where set.
std::string picture(const Glyph& glyph)
{
    std::string text;
    for (int y = 0; y < glyph.height; y++) {
        const auto row = glyph.rows.subspan(static_cast<std::size_t>(y * glyph.bytes_per_row()));
        for (int x = 0; x < glyph.bytes_per_row() * 8; x++)
            text += row[static_cast<std::size_t>(x / 8)] >> (7 - x % 8) & 1 ? '#' : '.';
        text += '\n';
    }
    return text;
}

// A reader of alignments tells characters apart by their pixels, and cells by their borders.
void expect_readable(const GrFont& font, const std::string& name)
{
    SCOPED_TRACE(name);
    std::map<std::string, char> seen;
    for (char c = ' '; c <= '~'; c++) {
        const Glyph glyph = font.glyph(static_cast<unsigned char>(c));
        ASSERT_EQ(glyph.width, font.width()) << c;
        ASSERT_EQ(glyph.height, font.height()) << c;
        const std::string pixels = picture(glyph);
        const auto [other, fresh] = seen.emplace(pixels, c);
        EXPECT_TRUE(fresh) << c << " looks like " << other->second << "\n" << pixels;
        EXPECT_EQ(pixels.find('#') == std::string::npos, c == ' ') << c;
        // Nothing stands in the padding of a row, which would show up in a wider cell.
        const int padding = glyph.bytes_per_row() * 8 - font.width();
        for (std::size_t end = pixels.find('\n'); end != std::string::npos; end = pixels.find('\n', end + 1))
            EXPECT_EQ(
                pixels.substr(end - static_cast<std::size_t>(padding), static_cast<std::size_t>(padding)),
                std::string(static_cast<std::size_t>(padding), '.'))
                << c;
    }
}

TEST(GeneratedFonts, EverySizeOfTheMenusIsReadable)
{
    int sizes = 0;
    for (const auto& entry : std::filesystem::directory_iterator(KQ_BUILD_DIRECTORY "/share/fonts")) {
        const std::string name = entry.path().stem();
        const auto font = GrLoadFont(entry.path().c_str());
        ASSERT_TRUE(font) << name;
        expect_readable(*font, name);
        sizes++;
        if (name.starts_with("cour")) {
            EXPECT_EQ(name, "cour" + std::to_string(font->height()));
        } else {
            EXPECT_EQ(name.substr(2), std::to_string(font->width()) + "x" + std::to_string(font->height()));
        }
    }
    EXPECT_EQ(sizes, 4 + 6 + 36);
}

TEST(GeneratedFonts, BuiltInFontsAreReadableAndAreTheFilesOfTheirNames)
{
    const std::pair<std::string, const GrFont*> built_in[] = {{"pc6x8", &GrFont_PC6x8},
                                                              {"pc8x8", &GrFont_PC8x8},
                                                              {"pc8x14", &GrFont_PC8x14},
                                                              {"pc8x16", &GrFont_PC8x16}};
    for (const auto& [name, font] : built_in) {
        expect_readable(*font, name);
        EXPECT_EQ(pc_font_file(name).size(), std::filesystem::file_size(font_path(name))) << name;
    }
    EXPECT_TRUE(pc_font_file("pc9x9").empty());
}

} // namespace
} // namespace kq
