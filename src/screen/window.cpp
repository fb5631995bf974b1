// screen: opening the window, its geometry file pyx.sys, and the geometry dialog.
#include "screen/window.h"

#include "raster/grx.h"
#include "screen/dialogs.h"
#include "screen/directories.h"
#include "screen/fields.h"
#include "screen/files.h"
#include "screen/process_end.h"
#include "screen/strings.h"
#include "screen/text.h"
#include "screen/text_state.h"

#include <algorithm>
#include <array>
#include <span>
#include <vector>

namespace kq {

namespace {

// ---- fonts ------------------------------------------------------------------------------------------------

enum FontType : int { pc_fonts = 0, courrier_fonts = 1, xm_fonts = 2 };

std::shared_ptr<const GrFont> loaded_font; // keeps the font of textopt_c alive when it came from a file

const GrFont* pc_font_of_height()
{
    switch (_gr_size_x) {
    case 14:
        return &GrFont_PC8x14;
    case 16:
        return &GrFont_PC8x16;
    case 8:
        return _gr_size_y == 6 ? &GrFont_PC6x8 : &GrFont_PC8x8;
    default:
        return nullptr;
    }
}

// The largest built-in font that lies inside a cell; the smallest where none does.
const GrFont* fitting_pc_font()
{
    if (_gr_size_y < 8 || _gr_size_x < 8) return &GrFont_PC6x8;
    if (_gr_size_x < 14) return &GrFont_PC8x8;
    return _gr_size_x < 16 ? &GrFont_PC8x14 : &GrFont_PC8x16;
}

void choose_font()
{
    if (_type_font == pc_fonts) {
        // Deliberate: a height without a built-in font keeps the font there was.
        if (const GrFont* font = pc_font_of_height()) textopt_c.txo_font = font;
        if (!textopt_c.txo_font) textopt_c.txo_font = fitting_pc_font();
        return;
    }
    const std::string name = _type_font == courrier_fonts
                                 ? text_format("cour%d.fnt", _gr_size_x)
                                 : text_format("xm%dx%d.fnt", _gr_size_y, _gr_size_x);
    auto font = GrLoadFont(shipped_file(name).c_str());
    textopt_c.txo_font = font ? font.get() : fitting_pc_font();
    loaded_font = std::move(font);
}

// A bar over the bottom 15 % of a cell.
std::unique_ptr<GrCursor> build_cursor()
{
    const int first_row = 85 * _gr_size_x / 100;
    std::vector<unsigned char> bitmap(static_cast<std::size_t>(_gr_size_x * _gr_size_y), 0);
    std::fill(bitmap.begin() + first_row * _gr_size_y, bitmap.end(), static_cast<unsigned char>(1));
    auto built = GrBuildCursor(bitmap.data(), _gr_size_y, _gr_size_x);
    if (!built) erreur_fatale("Insufficient memory for cursor");
    return built;
}

[[noreturn]] void refuse_without_window(bool reopening)
{
    // A window that is lost half-way may have unsaved work behind it.
    if (reopening) erreur_fatale(GrDriverError());
    write_error(GrDriverError() + "\n");
    end_program(1);
}

void write_screen_dump(const std::string& path)
{
    NewFile file(path + ".txt");
    file.write(screen_dump());
    if (!file.commit()) write_error(file.error() + "\n");
}

} // namespace

void open_window(std::string_view title)
{
    const bool reopening = GrSizeX() > 0;
    if (cursor) GrEraseCursor(*cursor);
    cursor.reset();
    if (!GrSetMode(GR_width_height_color_graphics, _nb_col * _gr_size_y, _nb_line * _gr_size_x,
                   gr_max_colors))
        refuse_without_window(reopening);
    GrSetWindowTitle(std::string(title).c_str());
    egacolors = GrAllocEgaColors();
    GrMouseDisplayCursor();
    cursor = build_cursor();
    choose_font();
    reset_text_screen();
    GrMemorySetScreenWriter(write_screen_dump);
}

// ---- pyx.sys ----------------------------------------------------------------------------------------------

namespace {

struct Geometry {
    int font_type = default_font_type;
    int cell_height = default_cell_height, cell_width = default_cell_width;
    int lines = default_lines, columns = default_columns;

    bool usable() const
    {
        const auto within = [](int value, int least, int most) { return value >= least && value <= most; };
        return within(font_type, pc_fonts, xm_fonts) &&
               within(cell_height, min_cell_height, max_cell_height) &&
               within(cell_width, min_cell_width, max_cell_width) && within(lines, min_lines, max_lines) &&
               within(columns, min_columns, max_columns);
    }
};

Geometry current_geometry()
{
    return {_type_font, _gr_size_x, _gr_size_y, _nb_line, _nb_col};
}

void set_geometry(const Geometry& geometry)
{
    _type_font = geometry.font_type;
    _gr_size_x = geometry.cell_height;
    _gr_size_y = geometry.cell_width;
    _nb_line = geometry.lines;
    _nb_col = geometry.columns;
}

std::string geometry_file()
{
    return dir_DATA + "pyx.sys";
}

} // namespace

void read_config_pyx()
{
    Geometry read;
    // A bounded count of digits, so that no number overflows.
    const File file{std::fopen(geometry_file().c_str(), "r")};
    const bool complete =
        file && std::fscanf(file.get(), "%9d%9d%9d%9d%9d", &read.font_type, &read.cell_height,
                            &read.cell_width, &read.lines, &read.columns) == 5;
    set_geometry(complete && read.usable() ? read : Geometry{});
}

void save_config_pyx()
{
    const Geometry geometry = current_geometry();
    const std::string text = text_format("%d\n%d\n%d\n%d\n%d\n", geometry.font_type, geometry.cell_height,
                                         geometry.cell_width, geometry.lines, geometry.columns);
    if (const std::string reason = cannot_write(dir_DATA, text.size()); !reason.empty()) {
        affich_avert(reason, 5);
        return;
    }
    NewFile file(geometry_file());
    file.write(text);
    if (!file.commit()) erreur_fatale("Problem in opening file " + geometry_file());
}

// ---- the geometry dialog ----------------------------------------------------------------------------------

namespace {

using Labels = std::span<const std::string_view>;

constexpr std::array<std::string_view, 4> pc_sizes = {"6x8", "8x8", "8x14", "8x16"};
constexpr std::array<std::string_view, 6> courrier_sizes = {"6x11",  "7x12",  "8x14",
                                                            "10x16", "12x20", "16x25"};
constexpr std::array<std::string_view, 36> xm_sizes = {
    "4x5",  "4x6",  "5x10", "5x6",  "5x8",   "6x10",  "6x12",  "6x13",  "6x16",  "6x6",   "6x8",   "6x9",
    "7x10", "7x12", "7x13", "7x14", "7x17",  "7x8",   "8x10",  "8x12",  "8x13",  "8x14",  "8x15",  "8x16",
    "8x19", "8x8",  "9x15", "9x17", "10x17", "10x20", "12x15", "12x20", "12x23", "12x24", "14x26", "16x25"};
constexpr std::array<Labels, 3> size_tables = {Labels(pc_sizes), Labels(courrier_sizes), Labels(xm_sizes)};

constexpr std::array<std::string_view, 3> font_names = {"PCdefault", "courrier", "xm"};

constexpr std::array<std::string_view, 5> window_options = {
    "Select the number of lines", "Select the number of columns", "Select the font",
    "Select the size of the font", "Save the new values"};
enum WindowOption : int { option_lines, option_columns, option_font, option_size, option_save };

// Asks for a number in a box from line l1 on, columns 15 to 65. False on ESCAPE.
bool ask_number(std::string_view prompt, int l1, int& value)
{
    constexpr int field_column = 35, field_width = 7;
    _setbgcolor(color::black);
    const int width = std::min(65 - 15 + 1, _nb_col);
    const bool fits = field_column + field_width <= width;
    // On a narrow screen the field stands below its prompt.
    const std::vector<std::string> rows = wrap_text(prompt, width - 4);
    const int field_line = fits ? 2 : 2 + static_cast<int>(rows.size());
    window_hp(l1, 15, l1 + field_line, 65, color::cyan);
    _settextcolor(color::light_cyan);
    for (std::size_t i = 0; i < rows.size(); i++) {
        _settextposition(static_cast<int>(i) + 2, 3);
        _outtext(rows[i]);
    }
    const bool entered = enter_int(value, min_lines, max_lines, field_line, fits ? field_column : 3);
    _clearscreen(1);
    return entered;
}

void ask_lines(std::string_view title)
{
    int lines = _nb_line;
    if (!ask_number("Number of lines (20-200) =", 14, lines)) return;
    _nb_line = lines;
    open_window(title);
}

void ask_columns(std::string_view title)
{
    int columns = _nb_col;
    // Deliberate: the bounds are those of the lines, whatever the prompt says.
    if (!ask_number("Number of columns (80-160) =", 1, columns)) return;
    _nb_col = columns / 10 * 10;
    open_window(title);
}

void ask_font(std::string_view title)
{
    const int type = _choice_option(5, _type_font, font_names, 10);
    if (type == escaped || type == _type_font) return;
    _type_font = type;
    _gr_size_x = default_cell_height;
    _gr_size_y = default_cell_width;
    open_window(title);
}

} // namespace

void choice_size_font()
{
    const Labels sizes = size_tables[static_cast<std::size_t>(std::clamp(_type_font, 0, 2))];
    const auto current = std::find(sizes.begin(), sizes.end(), text_format("%dx%d", _gr_size_y, _gr_size_x));
    const int preselected = current == sizes.end() ? 0 : static_cast<int>(current - sizes.begin());
    const int chosen = _choice_option(1, preselected, sizes, 6);
    if (chosen == escaped) return;
    int width = 0, height = 0;
    const std::string size(sizes[static_cast<std::size_t>(chosen)]);
    if (std::sscanf(size.c_str(), "%dx%d", &width, &height) != 2) return;
    _gr_size_y = width;
    _gr_size_x = height;
}

void choice_option_window(std::string_view title)
{
    const Geometry before = current_geometry();
    for (;;) {
        switch (_choice_option(1, 0, window_options, 30)) {
        case option_lines:
            ask_lines(title);
            break;
        case option_columns:
            ask_columns(title);
            break;
        case option_font:
            ask_font(title);
            break;
        case option_size:
            choice_size_font();
            open_window(title);
            break;
        case option_save:
            save_config_pyx();
            return;
        default:
            set_geometry(before);
            open_window(title);
            return;
        }
    }
}

} // namespace kq
