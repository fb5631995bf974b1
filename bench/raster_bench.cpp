// How long a whole screen takes: drawing every cell into the surface (beside a plain loop over the pixels),
// and bringing it to the window. Windows are measured when DISPLAY names a server.
#include "raster/fnt_file.h"
#include "raster/palette.h"
#include "raster/pc_fonts.h"
#include "raster/surface.h"
#include "raster/xwin.h"

#include <benchmark/benchmark.h>

#include <cstdlib>

namespace kq {
namespace {

constexpr int cell_width = 8, cell_height = 14;

unsigned char character_of(int line, int column, int round)
{
    return static_cast<unsigned char>(33 + (line * 7 + column * 3 + round) % 94);
}

// One pixel after the other: what Surface::cell does, said plainly.
void plain_cell(Surface& surface, const Rect& where, const Glyph& glyph, Surface::Pixel ink,
                Surface::Pixel paper)
{
    for (int y = 0; y < where.height; y++)
        for (int x = 0; x < where.width; x++) {
            const bool inked =
                x < glyph.width && y < glyph.height &&
                (glyph.rows[static_cast<std::size_t>(y * glyph.bytes_per_row() + x / 8)] >> (7 - x % 8) &
                 1) != 0;
            surface.row(where.y + y)[static_cast<std::size_t>(where.x + x)] = inked ? ink : paper;
        }
    surface.damage().add(where);
}

template <class DrawCell>
void draw_screen(Surface& surface, const GrFont& font, int lines, int columns, int round, DrawCell draw)
{
    for (int line = 0; line < lines; line++)
        for (int column = 0; column < columns; column++) {
            const Rect where{column * cell_width, line * cell_height, cell_width, cell_height};
            draw(where, font.glyph(character_of(line, column, round)));
        }
    benchmark::DoNotOptimize(surface.row(0).data());
}

void redraw(benchmark::State& state)
{
    const int lines = static_cast<int>(state.range(0)), columns = static_cast<int>(state.range(1));
    const auto font = parse_fnt(pc_font_file("pc8x14"));
    Surface surface(columns * cell_width, lines * cell_height);
    int round = 0;
    for (auto _ : state) {
        draw_screen(surface, *font, lines, columns, round++,
                    [&](const Rect& where, const Glyph& glyph) { surface.cell(where, glyph, 7, 1); });
        benchmark::DoNotOptimize(surface.damage().take());
    }
}

void redraw_plain(benchmark::State& state)
{
    const int lines = static_cast<int>(state.range(0)), columns = static_cast<int>(state.range(1));
    const auto font = parse_fnt(pc_font_file("pc8x14"));
    Surface surface(columns * cell_width, lines * cell_height);
    int round = 0;
    for (auto _ : state) {
        draw_screen(surface, *font, lines, columns, round++,
                    [&](const Rect& where, const Glyph& glyph) { plain_cell(surface, where, glyph, 7, 1); });
        benchmark::DoNotOptimize(surface.damage().take());
    }
}

// A whole screen, or one cell of it, from the surface to the server and back with its confirmation.
void present(benchmark::State& state, bool whole)
{
    if (!std::getenv("DISPLAY")) {
        state.SkipWithError("no DISPLAY");
        return;
    }
    const int lines = static_cast<int>(state.range(0)), columns = static_cast<int>(state.range(1));
    Surface surface(columns * cell_width, lines * cell_height);
    const Palette palette;
    const auto driver = make_xwin_driver([] { std::exit(1); });
    const auto error = driver->open(surface.width(), surface.height(), "kq benchmark");
    if (!error.empty()) {
        state.SkipWithError(error.c_str());
        return;
    }
    Surface::Pixel colour = 0;
    for (auto _ : state) {
        if (whole)
            surface.clear(colour++ % 16);
        else
            surface.fill(320, 140, 327, 153, colour++ % 16);
        driver->present(surface, palette, surface.damage().take()); // waits for the one before
    }
}

const auto sizes = [](benchmark::internal::Benchmark* benchmark) {
    benchmark->Args({34, 100})->Args({200, 160})->Unit(benchmark::kMicrosecond)->UseRealTime();
};
BENCHMARK(redraw)->Apply(sizes);
BENCHMARK(redraw_plain)->Apply(sizes);
BENCHMARK_CAPTURE(present, whole_screen, true)->Apply(sizes);
BENCHMARK_CAPTURE(present, one_cell, false)->Apply(sizes);

} // namespace
} // namespace kq

BENCHMARK_MAIN();
