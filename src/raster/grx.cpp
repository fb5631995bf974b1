// platform: the part of the GRX 2 interface that the text layer draws with, over our own surface and drivers.
#include "raster/grx.h"

#include "raster/driver.h"
#include "raster/fnt_file.h"
#include "raster/key_script.h"
#include "raster/keys.h"
#include "raster/memory.h"
#include "raster/palette.h"
#include "raster/pc_fonts.h"
#include "raster/png_file.h"
#include "raster/surface.h"
#include "raster/xwin.h"

#include <array>
#include <cassert>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <numeric>
#include <utility>

namespace kq {

namespace {

using Clock = std::chrono::steady_clock;
constexpr auto longest_unshown = std::chrono::milliseconds(50);

constexpr GrColor cursor_colour = 15, cursor_over_white = 0, cursor_without_focus = 8;

struct Screen {
    std::unique_ptr<Driver> driver; // null before the first GrSetMode
    MemoryDriver* memory = nullptr; // the driver when it is the memory driver
    bool open = false;
    std::string error, title = "kq";
    Surface surface;
    Palette palette;
    GrCursor* cursor = nullptr; // the one that is shown
    Clock::time_point presented{};
    std::function<void()> connection_lost, script_end;
    std::function<void(const std::string&)> screen_writer;
};

// Never destroyed: cursors in static storage may be erased after it.
Screen& screen()
{
    static Screen* the_screen = new Screen;
    return *the_screen;
}

// ---- presenting -------------------------------------------------------------------------------------------

Rect cursor_rect(const GrCursor& cursor)
{
    return intersection({cursor.x, cursor.y, cursor.width, cursor.height}, screen().surface.bounds());
}

// The cursor on the surface as long as this object lives.
class PaintedCursor {
public:
    PaintedCursor(Surface& surface, const GrCursor* cursor, bool focused)
        : surface_(surface)
    {
        if (!cursor) return;
        rect_ = cursor_rect(*cursor);
        each_pixel([&](Surface::Pixel& pixel, int x, int y) {
            under_.push_back(static_cast<char>(pixel));
            const int at = (y - cursor->y) * cursor->width + (x - cursor->x);
            if (cursor->bitmap[static_cast<std::size_t>(at)] == 0) return;
            if (!focused)
                pixel = cursor_without_focus;
            else
                pixel = pixel == cursor_colour ? cursor_over_white : cursor_colour;
        });
    }
    ~PaintedCursor()
    {
        std::size_t i = 0;
        each_pixel(
            [&](Surface::Pixel& pixel, int, int) { pixel = static_cast<Surface::Pixel>(under_[i++]); });
    }
    PaintedCursor(const PaintedCursor&) = delete;
    PaintedCursor& operator=(const PaintedCursor&) = delete;

private:
    Surface& surface_;
    Rect rect_;
    std::string under_;

    template <class Visit>
    void each_pixel(Visit visit)
    {
        for (int y = rect_.y; y < rect_.y + rect_.height; y++)
            for (int x = rect_.x; x < rect_.x + rect_.width; x++)
                visit(surface_.row(y)[static_cast<std::size_t>(x)], x, y);
    }
};

void touch_cursor()
{
    auto& s = screen();
    if (s.cursor) s.surface.damage().add(cursor_rect(*s.cursor));
}

void present()
{
    auto& s = screen();
    s.presented = Clock::now();
    if (!s.surface.damage().any()) return;
    const auto changed = s.surface.damage().take();
    const PaintedCursor painted(s.surface, s.cursor, s.driver->focused());
    s.driver->present(s.surface, s.palette, changed);
}

void present_when_due()
{
    if (Clock::now() - screen().presented >= longest_unshown) present();
}

// ---- the memory driver ------------------------------------------------------------------------------------

void write_screen(const std::string& name)
{
    auto& s = screen();
    present();
    const char* directory = std::getenv("KQ_SCREENS");
    const std::string path = (directory && *directory ? directory : ".") + ("/" + name);
    if (s.screen_writer) s.screen_writer(path);
    if (!GrSavePng(path + ".png")) std::fprintf(stderr, "kq: cannot write %s.png\n", path.c_str());
}

void end_scripted_run()
{
    std::fputs("kq: the script of keys has ended\n", stderr);
    if (screen().script_end) screen().script_end();
    std::exit(0);
}

void play(KeyScript script, MemoryDriver::Hooks hooks)
{
    auto& s = screen();
    if (s.memory) {
        s.memory->play(std::move(script), std::move(hooks));
        return;
    }
    auto driver = std::make_unique<MemoryDriver>(std::move(script), std::move(hooks));
    s.memory = driver.get();
    s.driver = std::move(driver);
    s.open = false;
}

std::string mistakes_text(const KeyScript& script)
{
    const auto joined = [](const std::string& all, const std::string& one) { return all + "\n" + one; };
    const auto& mistakes = script.mistakes;
    return std::accumulate(std::next(mistakes.begin()), mistakes.end(), mistakes.front(), joined);
}

// Plays the file that KQ_SCRIPT names. Empty, or why not.
std::string play_script_file()
{
    const char* path = std::getenv("KQ_SCRIPT");
    if (!path || !*path)
        return "The display driver \"memory\" plays a script of keys: KQ_SCRIPT has to name its file.";
    std::ifstream file(path, std::ios::binary);
    file.peek(); // a directory can be opened, but not read
    if (!file.is_open() || file.bad())
        return "The script of keys \"" + std::string(path) + "\" cannot be read.";
    const std::string text{std::istreambuf_iterator<char>(file), {}};
    auto script = parse_key_script(text);
    if (!script.mistakes.empty())
        return "The script of keys \"" + std::string(path) + "\" has mistakes:\n" + mistakes_text(script);
    play(std::move(script), {write_screen, end_scripted_run});
    return {};
}

// ---- choosing the driver ----------------------------------------------------------------------------------

void connection_lost()
{
    const auto lost = std::exchange(screen().connection_lost, nullptr);
    if (lost) lost();
    std::exit(1);
}

// Makes the driver that GRX20DRV names (its first word; drivers' options may follow). Empty, or why not.
std::string choose_driver()
{
    const char* variable = std::getenv("GRX20DRV");
    std::string name = variable ? variable : "";
    name = name.substr(0, name.find(' '));
    if (name == "memory") return play_script_file();
    if (!name.empty() && name != "xwin")
        return "GRX20DRV names the display driver \"" + name +
               "\", but there are only \"xwin\" and \"memory\".";
    screen().driver = make_xwin_driver(connection_lost);
    return {};
}

} // namespace

// ---- graphics mode ----------------------------------------------------------------------------------------

int GrSetMode(GrGraphicsMode, int width, int height, [[maybe_unused]] int colors)
{
    auto& s = screen();
    assert(colors == gr_max_colors);
    if (width < 1 || height < 1 || width > Surface::max_size || height > Surface::max_size) {
        s.error = "A window of " + std::to_string(width) + " x " + std::to_string(height) +
                  " pixels is not possible.";
        return 0;
    }
    s.error = s.driver ? "" : choose_driver();
    if (!s.error.empty()) return 0;
    if (s.cursor) GrEraseCursor(*s.cursor);
    s.error = s.driver->open(width, height, s.title);
    if (!s.error.empty()) {
        if (!s.open) s.driver.reset(); // the next call may choose another
        if (!s.driver) s.memory = nullptr;
        return 0;
    }
    s.open = true;
    s.surface = Surface(width, height);
    return 1;
}

void GrSetWindowTitle(const char* title)
{
    auto& s = screen();
    s.title = title;
    if (s.open) s.driver->set_title(s.title);
}

std::string GrDriverError()
{
    return screen().error;
}

void GrSetConnectionLost(std::function<void()> lost)
{
    screen().connection_lost = std::move(lost);
}

bool GrCutConnection() noexcept
{
    return cut_xwin_connection();
}

int GrSizeX()
{
    return screen().surface.width();
}

int GrSizeY()
{
    return screen().surface.height();
}

void GrFlush()
{
    auto& s = screen();
    if (!s.open) return;
    s.driver->key_waiting(); // looks after the window meanwhile
    present();
}

// ---- colours ----------------------------------------------------------------------------------------------

const GrColor* GrAllocEgaColors()
{
    static constexpr std::array<GrColor, 16> table = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15};
    return table.data();
}

GrColor GrAllocColor(int red, int green, int blue)
{
    const auto channel = [](int value) { return static_cast<std::uint8_t>(std::clamp(value, 0, 255)); };
    return screen().palette.allocate({channel(red), channel(green), channel(blue)});
}

void GrQueryColor(GrColor color, int* red, int* green, int* blue)
{
    const Rgb rgb = screen().palette.colour(color);
    *red = rgb.red;
    *green = rgb.green;
    *blue = rgb.blue;
}

// ---- drawing ----------------------------------------------------------------------------------------------

void GrClearScreen(GrColor color)
{
    screen().surface.clear(color);
}

void GrPlot(int x, int y, GrColor color)
{
    screen().surface.plot(x, y, color);
}

int GrPixel(int x, int y)
{
    return screen().surface.pixel(x, y);
}

std::vector<GrColor> GrCopyPixels()
{
    const auto pixels = screen().surface.pixels();
    return {pixels.begin(), pixels.end()};
}

void GrPutPixels(const std::vector<GrColor>& pixels)
{
    auto& surface = screen().surface;
    assert(pixels.size() == surface.pixels().size());
    surface.put(pixels);
}

void GrLine(int x1, int y1, int x2, int y2, GrColor color)
{
    screen().surface.line(x1, y1, x2, y2, color);
}

void GrBox(int x1, int y1, int x2, int y2, GrColor color)
{
    screen().surface.outline(x1, y1, x2, y2, color);
}

void GrFilledBox(int x1, int y1, int x2, int y2, GrColor color)
{
    screen().surface.fill(x1, y1, x2, y2, color);
}

void GrFilledCircle(int xc, int yc, int radius, GrColor color)
{
    screen().surface.disc(xc, yc, radius, color);
}

// ---- fonts ------------------------------------------------------------------------------------------------

namespace {

const GrFont& built_in_font(std::string_view name, int width, int height)
{
    auto font = parse_fnt(pc_font_file(name));
    if (!font) font = std::make_shared<GrFont>(width, height); // blank cells are better than none
    static std::vector<std::shared_ptr<const GrFont>> fonts;
    return *fonts.emplace_back(std::move(font));
}

} // namespace

const GrFont& GrFont_PC6x8 = built_in_font("pc6x8", 6, 8);
const GrFont& GrFont_PC8x8 = built_in_font("pc8x8", 8, 8);
const GrFont& GrFont_PC8x14 = built_in_font("pc8x14", 8, 14);
const GrFont& GrFont_PC8x16 = built_in_font("pc8x16", 8, 16);

std::shared_ptr<const GrFont> GrLoadFont(const char* path)
{
    return read_fnt_file(path);
}

void GrDrawChar(unsigned char c, int x, int y, int width, int height, const GrTextOption& option)
{
    const Glyph glyph = option.txo_font ? option.txo_font->glyph(c) : Glyph{};
    screen().surface.cell({x, y, width, height}, glyph, option.txo_fgcolor, option.txo_bgcolor);
}

// ---- block cursor and mouse pointer -----------------------------------------------------------------------

GrCursor::~GrCursor()
{
    GrEraseCursor(*this);
}

std::unique_ptr<GrCursor> GrBuildCursor(const unsigned char* bitmap, int width, int height)
{
    auto cursor = std::make_unique<GrCursor>();
    cursor->width = width;
    cursor->height = height;
    cursor->bitmap.assign(bitmap, bitmap + static_cast<std::ptrdiff_t>(width) * height);
    return cursor;
}

void GrMoveCursor(GrCursor& cursor, int x, int y)
{
    if (cursor.x == x && cursor.y == y) return;
    if (cursor.shown) touch_cursor();
    cursor.x = x;
    cursor.y = y;
    if (cursor.shown) touch_cursor();
}

void GrDisplayCursor(GrCursor& cursor)
{
    auto& s = screen();
    if (s.cursor == &cursor) return;
    if (s.cursor) GrEraseCursor(*s.cursor);
    s.cursor = &cursor;
    cursor.shown = true;
    touch_cursor();
}

void GrEraseCursor(GrCursor& cursor)
{
    auto& s = screen();
    if (s.cursor != &cursor) return;
    touch_cursor();
    s.cursor = nullptr;
    cursor.shown = false;
}

void GrMouseDisplayCursor()
{
    if (screen().open) screen().driver->show_pointer();
}

// ---- keyboard ---------------------------------------------------------------------------------------------

int GrKeyRead()
{
    auto& s = screen();
    assert(s.open);
    for (;;) {
        if (s.driver->key_waiting())
            present_when_due();
        else
            present();
        const int code = s.driver->wait_key();
        if (code != Driver::refresh) return code;
        touch_cursor(); // it shows whether the window has the focus
    }
}

bool GrKeyPressed()
{
    auto& s = screen();
    if (!s.open) return false;
    const bool waiting = s.driver->key_waiting();
    present_when_due();
    return waiting;
}

bool GrEscapePressed()
{
    auto& s = screen();
    if (!s.open) return false;
    const bool pressed = s.driver->take_waiting(key::escape);
    present_when_due();
    return pressed;
}

// ---- the memory driver ------------------------------------------------------------------------------------

void GrMemoryScript(std::string_view text)
{
    auto script = parse_key_script(text);
    if (!script.mistakes.empty()) throw std::invalid_argument(mistakes_text(script));
    play(std::move(script), {write_screen, [] { throw EndOfScript(); }});
}

void GrMemorySetEndHandler(std::function<void()> handler)
{
    screen().script_end = std::move(handler);
}

void GrMemorySetScreenWriter(std::function<void(const std::string& path)> writer)
{
    screen().screen_writer = std::move(writer);
}

bool GrSavePng(const std::string& path)
{
    auto& s = screen();
    const PaintedCursor painted(s.surface, s.cursor, true);
    return s.surface.width() > 0 && write_png(path, s.surface, s.palette);
}

} // namespace kq
