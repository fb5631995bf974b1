// The font file reader on good and on hostile bytes.
#include "raster/fnt_file.h"
#include "support/ali_folder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cstdint>
#include <random>

namespace kq {
namespace {

using Bytes = std::vector<unsigned char>;

struct Header {
    std::uint32_t magic = 0x19590214, bitmap_size = 0;
    std::uint16_t width = 0, height = 0, lowest = 0, highest = 0, fixed = 1;
};

void put(Bytes& bytes, std::uint32_t value, int size)
{
    for (int i = 0; i < size; i++)
        bytes.push_back(static_cast<unsigned char>(value >> (8 * i)));
}

Bytes font_bytes(const Header& header, const std::vector<std::uint16_t>& widths, const Bytes& glyphs)
{
    Bytes bytes;
    put(bytes, header.magic, 4);
    put(bytes, header.bitmap_size, 4);
    for (const std::uint16_t field :
         {header.width, header.height, header.lowest, header.highest, header.fixed})
        put(bytes, field, 2);
    bytes.resize(56); // reserved, baseline, underline, the two names
    for (const std::uint16_t width : widths)
        put(bytes, width, 2);
    bytes.insert(bytes.end(), glyphs.begin(), glyphs.end());
    return bytes;
}

// "A" and "B", ten pixels wide and two high.
Bytes fixed_font()
{
    return font_bytes({.bitmap_size = 8, .width = 10, .height = 2, .lowest = 'A', .highest = 'B'}, {},
                      {0x81, 0x40, 0xFF, 0xC0, 0x00, 0x80, 0x01, 0x00});
}

// "A" of 3 pixels, no "B", "C" of 9 pixels; three rows.
Bytes proportional_font()
{
    return font_bytes({.bitmap_size = 9, .width = 9, .height = 3, .lowest = 'A', .highest = 'C', .fixed = 0},
                      {3, 0, 9}, {0xA0, 0x40, 0xE0, 0x80, 0x80, 0x7F, 0x00, 0xFF, 0x80});
}

TEST(FntFile, ReadsFixedAndProportionalFonts)
{
    const auto fixed = parse_fnt(fixed_font());
    ASSERT_TRUE(fixed);
    EXPECT_EQ(fixed->width(), 10);
    EXPECT_EQ(fixed->height(), 2);
    EXPECT_FALSE(fixed->has('@'));
    EXPECT_FALSE(fixed->has('C'));
    const Glyph b = fixed->glyph('B');
    EXPECT_EQ(b.width, 10);
    EXPECT_EQ(Bytes(b.rows.begin(), b.rows.end()), (Bytes{0x00, 0x80, 0x01, 0x00}));

    const auto proportional = parse_fnt(proportional_font());
    ASSERT_TRUE(proportional);
    EXPECT_FALSE(proportional->has('B'));
    EXPECT_EQ(proportional->glyph('B').width, 0);
    const Glyph a = proportional->glyph('A'), c = proportional->glyph('C');
    EXPECT_EQ(a.width, 3);
    EXPECT_EQ(Bytes(a.rows.begin(), a.rows.end()), (Bytes{0xA0, 0x40, 0xE0}));
    EXPECT_EQ(c.width, 9);
    EXPECT_EQ(Bytes(c.rows.begin(), c.rows.end()), (Bytes{0x80, 0x80, 0x7F, 0x00, 0xFF, 0x80}));
}

TEST(FntFile, MalformedFontsGiveNone)
{
    const Header good = {.bitmap_size = 4, .width = 8, .height = 2, .lowest = 'A', .highest = 'B'};
    const auto changed = [&](auto change) {
        Header header = good;
        change(header);
        return parse_fnt(font_bytes(header, {}, {1, 2, 3, 4}));
    };
    ASSERT_TRUE(changed([](Header&) {}));
    EXPECT_FALSE(changed([](Header& h) { h.magic ^= 1; }));
    EXPECT_FALSE(changed([](Header& h) { h.width = 0; }));
    EXPECT_FALSE(changed([](Header& h) { h.height = 0; }));
    EXPECT_FALSE(changed([](Header& h) { h.width = 257; }));
    EXPECT_FALSE(changed([](Header& h) { h.height = 0xFFFF; }));
    EXPECT_FALSE(changed([](Header& h) { h.lowest = 'C'; })) << "lowest above highest";
    EXPECT_FALSE(changed([](Header& h) { h.highest = 0xFFFF; })) << "more glyphs than bytes";
    EXPECT_FALSE(changed([](Header& h) { h.bitmap_size = 3; })) << "fewer bytes promised than needed";
    EXPECT_FALSE(changed([](Header& h) { h.bitmap_size = 5; })) << "more bytes promised than there are";
    EXPECT_FALSE(changed([](Header& h) { h.bitmap_size = 0xFFFFFFFF; }));
    EXPECT_FALSE(changed([](Header& h) { h.fixed = 0; })) << "the glyphs are taken for widths";
    Bytes wide = proportional_font();
    wide[56] = 10; // "A" wider than the font
    EXPECT_FALSE(parse_fnt(wide));

    for (const Bytes& whole : {fixed_font(), proportional_font()})
        for (std::size_t size = 0; size < whole.size(); size++)
            EXPECT_FALSE(parse_fnt(std::span(whole).first(size))) << "cut to " << size << " bytes";
}

// Whatever the bytes, a font that is accepted has glyphs of its own size.
TEST(FntFile, DamagedFontsStayInsideTheirBytes)
{
    const unsigned seed = std::random_device{}();
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    std::mt19937 random(seed);
    for (int round = 0; round < 20000; round++) {
        Bytes bytes = round % 2 == 0 ? fixed_font() : proportional_font();
        for (int i = 0; i < 3; i++)
            bytes[4 + random() % (bytes.size() - 4)] =
                static_cast<unsigned char>(random() % 4 == 0 ? random() : random() % 4);
        const auto font = parse_fnt(bytes);
        if (!font) continue;
        for (int c = 0; c < 256; c++) {
            const Glyph glyph = font->glyph(static_cast<unsigned char>(c));
            ASSERT_LE(glyph.width, font->width());
            ASSERT_EQ(std::ssize(glyph.rows), glyph.bytes_per_row() * font->height());
        }
    }
}

TEST(FntFile, OnlyRegularFilesAreOpened)
{
    const test::Folder folder;
    const Bytes bytes = fixed_font();
    folder.write("a.fnt", std::string(bytes.begin(), bytes.end()));
    ASSERT_EQ(mkfifo(folder.path("p.fnt").c_str(), 0600), 0);
    EXPECT_TRUE(read_fnt_file(folder.path("a.fnt")));
    EXPECT_FALSE(read_fnt_file(folder.path("p.fnt"))); // would wait for ever
    EXPECT_FALSE(read_fnt_file(folder.path()));
    EXPECT_FALSE(read_fnt_file(folder.path("none.fnt")));
}

} // namespace
} // namespace kq
