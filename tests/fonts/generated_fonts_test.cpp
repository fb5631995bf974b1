// The generated fonts, as the program reads them.
#include "raster/font.h"
#include "raster/grx.h"
#include "raster/pc_fonts.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace kq {
namespace {

struct Cell {
    std::string name;
    int width, height;
};

std::string font_path(const std::string& name)
{
    return KQ_BUILD_DIRECTORY "/share/fonts/" + name + ".fnt";
}

// Every size that the menus offer.
std::vector<Cell> cells()
{
    std::vector<Cell> all = {{"cour11", 6, 11},  {"cour12", 7, 12},  {"cour14", 8, 14},
                             {"cour16", 10, 16}, {"cour20", 12, 20}, {"cour25", 16, 25}};
    for (const std::string size :
         {"4x5",  "4x6",   "5x10",  "5x6",   "5x8",   "6x10",  "6x12",  "6x13",  "6x16",
          "6x6",  "6x8",   "6x9",   "7x10",  "7x12",  "7x13",  "7x14",  "7x17",  "7x8",
          "8x10", "8x12",  "8x13",  "8x14",  "8x15",  "8x16",  "8x19",  "8x8",   "9x15",
          "9x17", "10x17", "10x20", "12x15", "12x20", "12x23", "12x24", "14x26", "16x25"}) {
        Cell cell{"xm" + size, 0, 0};
        std::sscanf(size.c_str(), "%dx%d", &cell.width, &cell.height);
        all.push_back(cell);
    }
    return all;
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
void expect_readable(const GrFont& font, const Cell& cell)
{
    SCOPED_TRACE(cell.name);
    EXPECT_EQ(font.width(), cell.width);
    EXPECT_EQ(font.height(), cell.height);
    std::map<std::string, char> seen;
    for (char c = ' '; c <= '~'; c++) {
        const Glyph glyph = font.glyph(static_cast<unsigned char>(c));
        ASSERT_EQ(glyph.width, cell.width) << c;
        ASSERT_EQ(glyph.height, cell.height) << c;
        const std::string pixels = picture(glyph);
        const auto [other, fresh] = seen.emplace(pixels, c);
        EXPECT_TRUE(fresh) << c << " looks like " << other->second << "\n" << pixels;
        EXPECT_EQ(pixels.find('#') == std::string::npos, c == ' ') << c;
        // Nothing stands in the padding of a row, which would show up in a wider cell.
        const int padding = glyph.bytes_per_row() * 8 - cell.width;
        for (std::size_t end = pixels.find('\n'); end != std::string::npos; end = pixels.find('\n', end + 1))
            EXPECT_EQ(
                pixels.substr(end - static_cast<std::size_t>(padding), static_cast<std::size_t>(padding)),
                std::string(static_cast<std::size_t>(padding), '.'))
                << c;
    }
}

TEST(GeneratedFonts, EverySizeOfTheMenusIsReadable)
{
    for (const Cell& cell : cells()) {
        const auto font = GrLoadFont(font_path(cell.name).c_str());
        ASSERT_TRUE(font) << cell.name;
        expect_readable(*font, cell);
    }
}

TEST(GeneratedFonts, BuiltInFontsAreReadableAndAreTheFilesOfTheirNames)
{
    const std::pair<Cell, const GrFont*> built_in[] = {{{"pc6x8", 6, 8}, &GrFont_PC6x8},
                                                       {{"pc8x8", 8, 8}, &GrFont_PC8x8},
                                                       {{"pc8x14", 8, 14}, &GrFont_PC8x14},
                                                       {{"pc8x16", 8, 16}, &GrFont_PC8x16}};
    for (const auto& [cell, font] : built_in) {
        expect_readable(*font, cell);
        EXPECT_EQ(pc_font_file(cell.name).size(), std::filesystem::file_size(font_path(cell.name)))
            << cell.name;
    }
    EXPECT_TRUE(pc_font_file("pc9x9").empty());
}

} // namespace
} // namespace kq
