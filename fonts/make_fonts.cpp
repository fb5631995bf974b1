// format: makes every bitmap font of the program from Debian's font packages, at build time.
//
// Usage: kq_make_fonts X11-FONTS OUTLINE-FONT OUTPUT-DIRECTORY EMBEDDED-SOURCE
// Writes each font of recipes.h to OUTPUT-DIRECTORY/<name>.fnt, and the four PC fonts also as the C++ source
// of kq::pc_font_file. The characters are those of Latin-1; one that no source has is a hollow box, so that a
// stray byte in a file can be seen. It stops when two printable ASCII characters look the same or one leaves
// its cell: such a font is of no use in an alignment.
#include "recipes.h"

#include <ft2build.h>
#include FT_FREETYPE_H

#include <algorithm>
#include <cstdint>
#include <fstream>
#include <iostream>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace kq::fonts {
namespace {

constexpr int first_printable = 32, last_printable = 126, characters = 256;
constexpr std::size_t name_field = 16; // bytes of each name in a .fnt header
constexpr std::uint32_t fnt_magic = 0x19590214;

std::string quoted(std::string_view text)
{
    return '"' + std::string(text) + '"';
}

// The pixels of one character's cell, row by row.
struct Glyph {
    int width, height;
    std::vector<bool> pixels;
    bool outside = false; // part of it lay outside the cell and was cut off

    Glyph(int w, int h)
        : width(w)
        , height(h)
        , pixels(static_cast<std::size_t>(w * h))
    {
    }
    void set(int x, int y)
    {
        if (x < 0 || y < 0 || x >= width || y >= height)
            outside = true;
        else
            pixels[static_cast<std::size_t>(y * width + x)] = true;
    }
};

// ---- sources ----------------------------------------------------------------------------------------------

struct FaceCloser {
    void operator()(FT_Face face) const noexcept { FT_Done_Face(face); }
};
using Face = std::unique_ptr<FT_FaceRec, FaceCloser>;

// A font file at one size.
class Source {
public:
    Source(FT_Library library, const std::string& path, const Recipe& recipe)
    {
        FT_Face face = nullptr;
        if (FT_New_Face(library, path.c_str(), 0, &face) != 0)
            throw std::runtime_error("the font file " + quoted(path) + " cannot be read");
        face_.reset(face);
        if (FT_IS_SCALABLE(face)) {
            // The advance of a monospaced outline is proportional to the horizontal size.
            const int units_wide = face->max_advance_width;
            const int ppem_x = (recipe.width * face->units_per_EM + units_wide / 2) / units_wide;
            if (FT_Set_Pixel_Sizes(face, static_cast<FT_UInt>(ppem_x), static_cast<FT_UInt>(recipe.ppem_y)) !=
                0)
                throw std::runtime_error("no size fits in " + quoted(path));
        } else {
            if (FT_Select_Size(face, 0) != 0) throw std::runtime_error("no bitmaps in " + quoted(path));
            // Old encodings come as the only table of the file, which is not taken by itself.
            if (!face->charmap && face->num_charmaps > 0) FT_Set_Charmap(face, face->charmaps[0]);
        }
        measure();
    }

    int advance() const { return advance_; }
    int height() const { return ascent_ + descent_; }
    int ascent() const { return ascent_; }

    // Draws a character with the pen at x and the top of the tallest one at y; false when the source has
    // none. A character that reaches over the side of the cell is moved into it.
    bool draw(int character, int x, int y, Glyph& glyph) const
    {
        if (!load(character)) return false;
        const FT_GlyphSlot slot = face_->glyph;
        const FT_Bitmap& bitmap = slot->bitmap;
        const int columns = static_cast<int>(bitmap.width);
        const int left = std::max(0, std::min(x + slot->bitmap_left, glyph.width - columns));
        const int top = y + ascent_ - slot->bitmap_top;
        for (int row = 0; row < static_cast<int>(bitmap.rows); row++)
            for (int column = 0; column < columns; column++)
                if (bitmap.buffer[row * bitmap.pitch + column / 8] >> (7 - column % 8) & 1)
                    glyph.set(left + column, top + row);
        return true;
    }

private:
    Face face_;
    int advance_ = 0;
    int ascent_ = 0, descent_ = 0; // what the printable ASCII characters need above and below the baseline

    bool load(int character) const
    {
        const FT_UInt index = FT_Get_Char_Index(face_.get(), static_cast<FT_ULong>(character));
        return index != 0 && FT_Load_Glyph(face_.get(), index, FT_LOAD_RENDER | FT_LOAD_TARGET_MONO) == 0;
    }

    // The line height that fonts declare is often larger than any character needs.
    void measure()
    {
        for (int c = first_printable; c <= last_printable; c++) {
            if (!load(c)) continue;
            const FT_GlyphSlot slot = face_->glyph;
            advance_ = std::max(advance_, static_cast<int>(slot->advance.x >> 6));
            ascent_ = std::max(ascent_, static_cast<int>(slot->bitmap_top));
            descent_ = std::max(descent_, static_cast<int>(slot->bitmap.rows) - slot->bitmap_top);
        }
    }
};

// ---- one font ---------------------------------------------------------------------------------------------

struct Font {
    const Recipe& recipe;
    int baseline = 0;
    std::vector<Glyph> glyphs;
};

Glyph hollow_box(int width, int height)
{
    Glyph glyph(width, height);
    const int right = width - 2, bottom = height - 2;
    for (int x = 0; x <= right; x++)
        glyph.set(x, 0), glyph.set(x, bottom);
    for (int y = 0; y <= bottom; y++)
        glyph.set(0, y), glyph.set(right, y);
    return glyph;
}

// Refuses a font in which a printable ASCII character cannot be told from another or is cut off.
void check(const Font& font)
{
    const auto fail = [&](int c, const std::string& why) {
        throw std::runtime_error("font " + std::string(font.recipe.name) + ", character " +
                                 quoted(std::string(1, static_cast<char>(c))) + ": " + why);
    };
    std::map<std::vector<bool>, int> seen;
    for (int c = first_printable; c <= last_printable; c++) {
        const Glyph& glyph = font.glyphs[static_cast<std::size_t>(c)];
        if (glyph.outside) fail(c, "it leaves its cell");
        const auto [other, fresh] = seen.emplace(glyph.pixels, c);
        if (!fresh) fail(c, "it looks like " + quoted(std::string(1, static_cast<char>(other->second))));
    }
}

class Maker {
public:
    Maker(std::string x11_fonts, std::string outline)
        : x11_fonts_(std::move(x11_fonts))
        , outline_(std::move(outline))
    {
        if (FT_Init_FreeType(&library_) != 0) throw std::runtime_error("FreeType cannot be started");
    }
    ~Maker() { FT_Done_FreeType(library_); }
    Maker(const Maker&) = delete;
    Maker& operator=(const Maker&) = delete;

    Font make(const Recipe& recipe) const
    {
        const Source source(library_, path(recipe.source), recipe);
        const auto latin = latin_source(recipe);
        const int x = (recipe.width - source.advance()) / 2, y = (recipe.height - source.height()) / 2;
        Font font{recipe, y + source.ascent(), {}};
        for (int c = 0; c < characters; c++) {
            Glyph glyph(recipe.width, recipe.height);
            const bool printable = (c >= first_printable && c <= last_printable) || c >= 160;
            const bool drawn =
                printable &&
                (source.draw(c, x, y, glyph) ||
                 (c >= 160 && latin && latin->draw(c, 0, font.baseline - latin->ascent(), glyph)));
            font.glyphs.push_back(drawn ? std::move(glyph) : hollow_box(recipe.width, recipe.height));
        }
        check(font);
        return font;
    }

private:
    std::string x11_fonts_, outline_;
    FT_Library library_ = nullptr;

    std::string path(std::string_view source) const
    {
        return source == outline_font ? outline_ : x11_fonts_ + "/" + std::string(source);
    }

    std::unique_ptr<Source> latin_source(const Recipe& recipe) const
    {
        for (const LatinFont& font : latin_fonts)
            if (font.width <= recipe.width && font.height <= recipe.height)
                return std::make_unique<Source>(library_, path(font.source), recipe);
        return nullptr;
    }
};

// ---- writing ----------------------------------------------------------------------------------------------

void put(std::string& bytes, std::uint32_t value, int size)
{
    for (int i = 0; i < size; i++)
        bytes += static_cast<char>(value >> (8 * i) & 0xff);
}

void put_name(std::string& bytes, std::string name)
{
    name.resize(name_field);
    bytes += name;
}

std::string fnt_bytes(const Font& font)
{
    std::string bitmap;
    for (const Glyph& glyph : font.glyphs)
        for (int y = 0; y < glyph.height; y++)
            for (int x0 = 0; x0 < glyph.width; x0 += 8) {
                unsigned byte = 0;
                for (int x = x0; x < x0 + 8; x++)
                    byte = byte << 1 |
                           (x < glyph.width && glyph.pixels[static_cast<std::size_t>(y * glyph.width + x)]);
                bitmap += static_cast<char>(byte);
            }

    const Recipe& recipe = font.recipe;
    const std::string name(recipe.name);
    std::string bytes;
    put(bytes, fnt_magic, 4);
    put(bytes, static_cast<std::uint32_t>(bitmap.size()), 4);
    const int fields[] = {recipe.width, recipe.height, 0, characters - 1, 1, 0, font.baseline, 1};
    for (const int field : fields)
        put(bytes, static_cast<std::uint32_t>(field), 2);
    put_name(bytes, name + ".fnt");
    put_name(bytes, name.substr(0, name.find_first_of("0123456789")));
    return bytes + bitmap;
}

void write_file(const std::string& path, const std::string& bytes)
{
    std::ofstream file(path, std::ios::binary);
    file << bytes;
    file.close();
    if (!file) throw std::runtime_error("the file " + quoted(path) + " cannot be written");
}

// The C++ source of the fonts that are built into the program.
std::string embedded_source(const std::vector<std::pair<std::string, std::string>>& fonts)
{
    std::string arrays, lookup;
    for (const auto& [name, bytes] : fonts) {
        arrays += "constexpr unsigned char " + name + "[] = {";
        for (std::size_t i = 0; i < bytes.size(); i++)
            arrays +=
                (i % 24 == 0 ? "\n    " : "") + std::to_string(static_cast<unsigned char>(bytes[i])) + ",";
        arrays += "\n};\n\n";
        lookup += "    if (name == \"" + name + "\") return " + name + ";\n";
    }
    return "// model: the built-in fonts, made by kq_make_fonts.\n"
           "#include \"raster/pc_fonts.h\"\n\n"
           "namespace kq {\nnamespace {\n\n" +
           arrays +
           "} // namespace\n\n"
           "std::span<const unsigned char> pc_font_file(std::string_view name)\n{\n" +
           lookup + "    return {};\n}\n\n} // namespace kq\n";
}

} // namespace
} // namespace kq::fonts

int main(int argc, char** argv)
{
    using namespace kq::fonts;
    if (argc != 5) {
        std::cerr << "usage: kq_make_fonts X11-FONTS OUTLINE-FONT OUTPUT-DIRECTORY EMBEDDED-SOURCE\n";
        return 2;
    }
    try {
        const Maker maker(argv[1], argv[2]);
        std::vector<std::pair<std::string, std::string>> embedded;
        for (const Recipe& recipe : recipes) {
            const std::string name(recipe.name), bytes = fnt_bytes(maker.make(recipe));
            write_file(std::string(argv[3]) + "/" + name + ".fnt", bytes);
            if (name.starts_with("pc")) embedded.emplace_back(name, bytes);
        }
        write_file(argv[4], embedded_source(embedded));
    } catch (const std::exception& error) {
        std::cerr << "kq_make_fonts: " << error.what() << "\n";
        return 1;
    }
    return 0;
}
