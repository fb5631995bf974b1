// platform: the part of the GRX 2 interface that the text layer draws with, over our own surface and drivers.
//
// Contents: graphics mode, colours, drawing, fonts, block cursor, keyboard.
// Pixels are (x, y) from the top left corner, both from 0. All drawing is clipped to the screen.
// A colour value is a palette index; the sixteen basic colours are entries 0 to 15 in EGA order.
// What is drawn reaches the window when the program waits for a key, and at the latest 50 ms after the last
// time while it goes on drawing without waiting (GrFlush and the functions of the keyboard look at the
// clock).
#pragma once

#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace kq {

// ---- graphics mode ----------------------------------------------------------------------------------------

enum GrGraphicsMode : int { GR_width_height_color_graphics = 9 };

// Opens the driver named by GRX20DRV ("xwin", the default, or "memory") or resizes its window; fills the
// screen with colour 0 and hides the cursor. The palette survives. `colors` is 256. Returns 0 when the window
// cannot be opened (GrDriverError() then says why in a sentence for the user), else nonzero.
int GrSetMode(GrGraphicsMode mode, int width, int height, int colors);
void GrSetWindowTitle(const char* title);
std::string GrDriverError();

// Called once when the connection to the window is lost for good (the server is gone, the window was
// destroyed). Nothing is shown any more and no key will come: the function saves what it can and ends the
// program. When it returns, or none is set, the program ends with status 1.
void GrSetConnectionLost(std::function<void()> lost);
// Cuts the connection, so that the next call that needs it, a waiting GrKeyRead too, comes upon its loss;
// false when there is none. May be called from a signal handler: so a signal ends the program at a place
// where it uses the window, never in the middle of an edit.
bool GrCutConnection() noexcept;

int GrSizeX(); // width of the screen in pixels, 0 before the first GrSetMode
int GrSizeY(); // height

// Shows at once what has been drawn (progress of a long computation calls this through the text layer).
void GrFlush();

// ---- colours ----------------------------------------------------------------------------------------------

using GrColor = unsigned char;
inline constexpr int gr_max_colors = 256;

// The table of the sixteen basic colours: entry i holds the colour value i.
const GrColor* GrAllocEgaColors();
// The entry that already has this colour, else the next free one; the nearest entry when all 256 are taken.
// Channels are 0..255 (other values are clamped).
GrColor GrAllocColor(int red, int green, int blue);
void GrQueryColor(GrColor color, int* red, int* green, int* blue);

// ---- drawing ----------------------------------------------------------------------------------------------

void GrClearScreen(GrColor color);
void GrPlot(int x, int y, GrColor color);
int GrPixel(int x, int y);                                       // colour value, or -1 outside the screen
std::vector<GrColor> GrCopyPixels();                             // all of the screen, row after row
void GrPutPixels(const std::vector<GrColor>& pixels);            // of a screen of the same size
void GrLine(int x1, int y1, int x2, int y2, GrColor color);      // both ends included
void GrBox(int x1, int y1, int x2, int y2, GrColor color);       // outline, corners included
void GrFilledBox(int x1, int y1, int x2, int y2, GrColor color); // corners included
void GrFilledCircle(int xc, int yc, int radius, GrColor color);

// ---- fonts ------------------------------------------------------------------------------------------------

class GrFont; // raster/font.h

extern const GrFont& GrFont_PC6x8;
extern const GrFont& GrFont_PC8x8;
extern const GrFont& GrFont_PC8x14;
extern const GrFont& GrFont_PC8x16;

// Reads a .fnt file; null when it is missing or malformed. The caller keeps the font alive while it is used.
std::shared_ptr<const GrFont> GrLoadFont(const char* path);

struct GrTextOption {
    const GrFont* txo_font = nullptr;
    GrColor txo_fgcolor = 7;
    GrColor txo_bgcolor = 0;
};

// The cell of `width` x `height` pixels whose top left corner is (x, y) is filled with the background and the
// glyph drawn into it, cut where it is larger than the cell. A character that the font lacks shows as blank.
void GrDrawChar(unsigned char c, int x, int y, int width, int height, const GrTextOption& option);

// ---- block cursor and mouse pointer -----------------------------------------------------------------------

// A cursor is drawn over the screen without changing it. `bitmap` has one byte a pixel, row after row
// (0 = transparent, else drawn in white, or black over a white pixel; dark grey while the window is without
// the focus); it is copied.
struct GrCursor {
    GrCursor() = default;
    GrCursor(const GrCursor&) = delete;
    GrCursor& operator=(const GrCursor&) = delete;
    ~GrCursor(); // erases it
    int width = 0, height = 0;
    std::string bitmap;
    int x = 0, y = 0;
    bool shown = false; // written by the functions below
};
std::unique_ptr<GrCursor> GrBuildCursor(const unsigned char* bitmap, int width, int height);
// At most one cursor is shown at a time: displaying one erases the other.
void GrMoveCursor(GrCursor& cursor, int x, int y);
void GrDisplayCursor(GrCursor& cursor);
void GrEraseCursor(GrCursor& cursor);
void GrMouseDisplayCursor(); // shows the mouse pointer over the window

// ---- keyboard ---------------------------------------------------------------------------------------------

// Waits for a key, after showing what has been drawn, and returns its code (raster/keys.h). Keys that are
// waiting already come first; the window then follows at the latest 50 ms after the last time.
int GrKeyRead();
// Whether a key is waiting; does not read it.
bool GrKeyPressed();
// Whether ESCAPE is among the waiting keys; it and those before it are then taken away.
bool GrEscapePressed();

// ---- the memory driver ------------------------------------------------------------------------------------
// The same pixels without a server; keys come from the script file named by KQ_SCRIPT, or from
// GrMemoryScript.

// Thrown by GrKeyRead when the script has ended and a test asked for it (GrMemoryScript).
struct EndOfScript : std::exception {
    const char* what() const noexcept override { return "the script of keys has ended"; }
};

// Plays `script` (the grammar of raster/key_script.h) from now on; at its end GrKeyRead throws EndOfScript.
// Makes the memory driver the one in use (a window of another driver is closed). Throws std::invalid_argument
// when the script has a mistake, naming its line.
void GrMemoryScript(std::string_view script);
// What happens at the end of a KQ_SCRIPT script, after a line on standard error that says so; it must not
// return. Null = std::exit(0).
void GrMemorySetEndHandler(std::function<void()> handler);
// Called for each `screen NAME` of a script with the path "DIRECTORY/NAME" without extension
// (DIRECTORY from KQ_SCREENS, else the current one). The text layer sets it; it writes NAME.txt. The driver
// itself writes NAME.png.
void GrMemorySetScreenWriter(std::function<void(const std::string& path)> writer);
// Writes the screen as a PNG file, cursor included, with any driver; false when it cannot be written.
bool GrSavePng(const std::string& path);

} // namespace kq
