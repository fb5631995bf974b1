// Drawing against pixel rules, and changed rectangles that carry a picture whole.
#include "raster/memory.h"
#include "raster/palette.h"
#include "raster/surface.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <functional>
#include <random>

namespace kq {
namespace {

using Rule = std::function<bool(int x, int y)>;

// Every pixel holds `ink` exactly where the rule says so, else 0.
void expect_rule(const Surface& surface, int ink, const Rule& rule)
{
    for (int y = 0; y < surface.height(); y++)
        for (int x = 0; x < surface.width(); x++)
            ASSERT_EQ(surface.pixel(x, y), rule(x, y) ? ink : 0) << "at " << x << ", " << y;
}

TEST(Surface, ShapesFollowTheirRulesAndAreClipped)
{
    struct Case {
        const char* name;
        std::function<void(Surface&)> draw;
        Rule rule;
    };
    const auto within = [](int v, int low, int high) { return v >= low && v <= high; };
    const Case cases[] = {
        {"box with corners in any order", [](Surface& s) { s.fill(12, 9, 3, 2, 5); },
         [&](int x, int y) { return within(x, 3, 12) && within(y, 2, 9); }},
        {"box far over every edge", [](Surface& s) { s.fill(INT_MIN, INT_MIN, INT_MAX, INT_MAX, 5); },
         [](int, int) { return true; }},
        {"box outside", [](Surface& s) { s.fill(40, 0, 60, 29, 5); }, [](int, int) { return false; }},
        {"outline half outside", [](Surface& s) { s.outline(-5, 4, 20, 50, 5); },
         [&](int x, int y) { return (y == 4 && x <= 20) || (x == 20 && y >= 4); }},
        {"vertical line upwards", [](Surface& s) { s.line(7, 100, 7, 3, 5); },
         [](int x, int y) { return x == 7 && y >= 3; }},
        {"diagonal through the whole plane",
         [](Surface& s) { s.line(-1000000000, -1000000000, 1000000000, 1000000000, 5); },
         [](int x, int y) { return x == y; }},
        {"flat line", [](Surface& s) { s.line(30, 12, 0, 2, 5); },
         [&](int x, int y) { return within(x, 0, 30) && y == std::lround(2 + x / 3.0); }},
        {"disc over the left edge", [](Surface& s) { s.disc(2, 15, 6, 5); },
         [](int x, int y) { return std::hypot(x - 2, y - 15) <= 6.5; }},
        {"disc of one pixel", [](Surface& s) { s.disc(9, 9, 0, 5); },
         [](int x, int y) { return x == 9 && y == 9; }},
        {"no disc", [](Surface& s) { s.disc(9, 9, -1, 5); }, [](int, int) { return false; }},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        Surface surface(40, 30);
        c.draw(surface);
        expect_rule(surface, 5, c.rule);
    }
}

TEST(Surface, CellsShowTheirGlyphWhereverTheyLie)
{
    // Twelve pixels wide: two bytes a row, the second half used. A different pattern in each row.
    std::vector<unsigned char> rows;
    for (int y = 0; y < 10; y++) {
        rows.push_back(static_cast<unsigned char>(0xB1 + 7 * y));
        rows.push_back(static_cast<unsigned char>((0x50 + 16 * y) & 0xF0));
    }
    const Glyph glyph{12, 10, rows};
    const auto bit = [&](int x, int y) {
        return x < glyph.width && y < glyph.height &&
               (rows[static_cast<std::size_t>(y * 2 + x / 8)] >> (7 - x % 8) & 1) != 0;
    };
    // Smaller than the glyph, larger, and each over every edge of the surface.
    for (const auto& [width, height] : {std::pair{12, 10}, {7, 5}, {30, 14}, {1, 1}})
        for (const int left : {-11, -3, 0, 5, 22, 33})
            for (const int top : {-9, -2, 3, 17}) {
                SCOPED_TRACE(testing::Message() << width << "x" << height << " at " << left << ", " << top);
                Surface surface(34, 18);
                surface.cell({left, top, width, height}, glyph, 9, 4);
                for (int y = 0; y < 18; y++)
                    for (int x = 0; x < 34; x++) {
                        const int gx = x - left, gy = y - top;
                        const bool inside = gx >= 0 && gy >= 0 && gx < width && gy < height;
                        ASSERT_EQ(surface.pixel(x, y), !inside ? 0 : bit(gx, gy) ? 9 : 4) << x << ", " << y;
                    }
            }
    Surface surface(20, 20);
    surface.cell({0, 0, 20, 20}, Glyph{}, 9, 4); // a character that the font lacks
    expect_rule(surface, 4, [](int, int) { return true; });
}

TEST(Damage, OneChangedCellTravelsAlone)
{
    Surface surface(1600, 1400);
    surface.damage().take();
    EXPECT_FALSE(surface.damage().any());
    surface.fill(800, 140, 807, 153, 3);
    EXPECT_EQ(surface.damage().take(), (std::vector<Rect>{{800, 140, 8, 14}}));
    EXPECT_TRUE(surface.damage().take().empty());
    // Far apart on one line: two rectangles. Neighbouring lines of the same width: one.
    surface.fill(0, 0, 7, 13, 1);
    surface.fill(1592, 0, 1599, 13, 1);
    EXPECT_EQ(surface.damage().take(), (std::vector<Rect>{{0, 0, 8, 14}, {1592, 0, 8, 14}}));
    for (int line = 0; line < 100; line++)
        surface.fill(0, line * 14, 1599, line * 14 + 13, 2);
    EXPECT_EQ(surface.damage().take(), (std::vector<Rect>{{0, 0, 1600, 1400}}));
}

// Whatever is drawn, the changed rectangles bring the shown picture up to date, and no pixel travels twice.
TEST(Damage, ChangedRectanglesCarryEverythingOnce)
{
    const unsigned seed = std::random_device{}();
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    std::mt19937 random(seed);
    const auto any = [&](int low, int high) { return std::uniform_int_distribution(low, high)(random); };
    const Palette palette;
    for (const auto& [width, height] : {std::pair{1, 1}, {511, 40}, {512, 33}, {1030, 61}}) {
        MemoryDriver driver({}, {});
        driver.open(width, height, "");
        Surface surface(width, height);
        std::vector<Surface::Pixel> kept;
        for (int round = 0; round < 60; round++) {
            if (round % 4 == 0) kept.assign(surface.pixels().begin(), surface.pixels().end());
            for (int i = any(0, 12); i > 0; i--) {
                const int x = any(-20, width + 20), y = any(-20, height + 20);
                const auto colour = static_cast<Surface::Pixel>(any(0, 255));
                switch (any(0, 3)) {
                case 0:
                    surface.cell({x, y, 8, 14}, Glyph{}, colour, colour);
                    break;
                case 1:
                    surface.line(x, y, any(0, width), any(0, height), colour);
                    break;
                case 2:
                    surface.disc(x, y, any(0, 9), colour);
                    break;
                default:
                    surface.plot(x, y, colour);
                }
            }
            if (round % 4 == 3) surface.put(kept);
            const auto changed = surface.damage().take();
            driver.present(surface, palette, changed);
            std::vector<int> visits(static_cast<std::size_t>(width * height));
            for (const Rect& rect : changed)
                for (int y = rect.y; y < rect.y + rect.height; y++)
                    for (int x = rect.x; x < rect.x + rect.width; x++)
                        ASSERT_EQ(++visits[static_cast<std::size_t>(y * width + x)], 1);
            for (int y = 0; y < height; y++)
                for (int x = 0; x < width; x++)
                    ASSERT_EQ(driver.shown().pixel(x, y), surface.pixel(x, y)) << x << ", " << y;
            ASSERT_TRUE(round % 4 != 3 || std::ranges::equal(surface.pixels(), kept));
        }
    }
}

TEST(Palette, BasicColoursThenEachColourOnceThenTheNearest)
{
    Palette palette;
    EXPECT_EQ(palette.size(), 16);
    EXPECT_EQ(palette.colour(6), (Rgb{0xAA, 0x55, 0x00}));
    EXPECT_EQ(palette.allocate({0xFF, 0xFF, 0x55}), 14);
    for (int i = 16; i < 256; i++)
        EXPECT_EQ(palette.allocate({static_cast<std::uint8_t>(i), 1, 2}), i);
    EXPECT_EQ(palette.allocate({200, 1, 2}), 200);
    EXPECT_EQ(palette.allocate({200, 2, 2}), 200) << "the nearest one when no entry is left";
    EXPECT_EQ(palette.allocate({0, 0xA0, 0xB0}), 3);
    EXPECT_EQ(palette.colour(200), (Rgb{200, 1, 2}));
}

} // namespace
} // namespace kq
