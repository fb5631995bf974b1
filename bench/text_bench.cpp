// The text layer: a full screen of 200 x 160 cells of 8 x 14 pixels, without a server.
#include "raster/grx.h"
#include "screen/text.h"
#include "screen/window.h"

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <vector>

namespace kq {
namespace {

constexpr int lines = 200, columns = 160;

void open_screen()
{
    setenv("GRX20DRV", "memory", 1);
    _nb_line = lines;
    _nb_col = columns;
    GrMemoryScript("");
    open_window("bench");
}

// Each line in one colour, another one every time.
void BM_TextChangingColours(benchmark::State& state)
{
    open_screen();
    const std::string text(columns, 'A');
    int colour = 0;
    for ([[maybe_unused]] auto _ : state) {
        for (int line = 1; line <= lines; line++) {
            _settextcolor(1 + (line + colour) % 15);
            _settextposition(line, 1);
            _outtext(text);
        }
        colour++;
    }
}
BENCHMARK(BM_TextChangingColours)->Unit(benchmark::kMillisecond);

// Each cell in its own colours, other ones every time (`moving`) or the same (0).
void BM_Cells(benchmark::State& state)
{
    open_screen();
    const int moving = static_cast<int>(state.range(0));
    std::vector<Cell> row(columns);
    int shift = 0;
    for ([[maybe_unused]] auto _ : state) {
        for (int line = 1; line <= lines; line++) {
            for (int i = 0; i < columns; i++) {
                const int k = i + line + shift;
                row[static_cast<std::size_t>(i)] = {static_cast<unsigned char>("ACGT"[k & 3]),
                                                    static_cast<unsigned char>(1 + k % 13),
                                                    static_cast<unsigned char>(k % 7), 0};
            }
            _outcells(line, 1, row);
        }
        shift += moving;
    }
}
BENCHMARK(BM_Cells)->ArgName("moving")->Arg(1)->Arg(0)->Unit(benchmark::kMillisecond);

void BM_ClearAndRedraw(benchmark::State& state)
{
    open_screen();
    const std::string text(columns, 'A');
    for ([[maybe_unused]] auto _ : state) {
        _clearscreen(0);
        for (int line = 1; line <= lines; line++) {
            _settextposition(line, 1);
            _outtext(text);
        }
    }
}
BENCHMARK(BM_ClearAndRedraw)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace kq

BENCHMARK_MAIN();
