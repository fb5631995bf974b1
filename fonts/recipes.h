// model: which font file each generated font is made from.
#pragma once

#include <array>
#include <string_view>

namespace kq::fonts {

// A bitmap font is taken as it is and centred in the cell. The outline font (".ttf") is rendered so that its
// advance is the cell's width, `ppem_y` pixels high.
struct Recipe {
    std::string_view name; // the file name without ".fnt"
    int width, height;     // the cell in pixels
    std::string_view source;
    int ppem_y = 0;
};

inline constexpr std::string_view outline_font = "DejaVuSansMono.ttf";

// clang-format off
inline constexpr std::array recipes = {
    // Built into the program: the heavier strokes of a PC text screen.
    Recipe{"pc6x8",    6,  8, "misc/clR6x8.pcf.gz"},
    Recipe{"pc8x8",    8,  8, "misc/clB8x8.pcf.gz"},
    Recipe{"pc8x14",   8, 14, "misc/clB8x14.pcf.gz"},
    Recipe{"pc8x16",   8, 16, "misc/clB8x16.pcf.gz"},

    Recipe{"cour11",   6, 11, "100dpi/courR08.pcf.gz"},
    Recipe{"cour12",   7, 12, "75dpi/courR12.pcf.gz"},
    Recipe{"cour14",   8, 14, "75dpi/courR12.pcf.gz"},
    Recipe{"cour16",  10, 16, "100dpi/courR12.pcf.gz"},
    Recipe{"cour20",  12, 20, "75dpi/courR18.pcf.gz"},
    Recipe{"cour25",  16, 25, "75dpi/courR24.pcf.gz"},

    Recipe{"xm4x5",    4,  5, "misc/micro.pcf.gz"},
    Recipe{"xm4x6",    4,  6, "misc/4x6.pcf.gz"},
    Recipe{"xm5x10",   5, 10, "misc/clR5x10.pcf.gz"},
    Recipe{"xm5x6",    5,  6, "misc/clR5x6.pcf.gz"},
    Recipe{"xm5x8",    5,  8, "misc/5x8.pcf.gz"},
    Recipe{"xm6x10",   6, 10, "misc/6x10.pcf.gz"},
    Recipe{"xm6x12",   6, 12, "misc/6x12.pcf.gz"},
    Recipe{"xm6x13",   6, 13, "misc/6x13.pcf.gz"},
    Recipe{"xm6x16",   6, 16, "misc/6x13.pcf.gz"},
    Recipe{"xm6x6",    6,  6, "misc/clR6x6.pcf.gz"},
    Recipe{"xm6x8",    6,  8, "misc/clR6x8.pcf.gz"},
    Recipe{"xm6x9",    6,  9, "misc/6x9.pcf.gz"},
    Recipe{"xm7x10",   7, 10, "misc/clR7x10.pcf.gz"},
    Recipe{"xm7x12",   7, 12, "misc/clR7x12.pcf.gz"},
    Recipe{"xm7x13",   7, 13, "misc/7x13.pcf.gz"},
    Recipe{"xm7x14",   7, 14, "misc/7x14.pcf.gz"},
    Recipe{"xm7x17",   7, 17, "misc/7x14.pcf.gz"},
    Recipe{"xm7x8",    7,  8, "misc/clR7x8.pcf.gz"},
    Recipe{"xm8x10",   8, 10, "misc/clR8x10.pcf.gz"},
    Recipe{"xm8x12",   8, 12, "misc/clR8x12.pcf.gz"},
    Recipe{"xm8x13",   8, 13, "misc/8x13.pcf.gz"},
    Recipe{"xm8x14",   8, 14, "misc/clR8x14.pcf.gz"},
    Recipe{"xm8x15",   8, 15, "misc/8x13.pcf.gz"},
    Recipe{"xm8x16",   8, 16, "misc/8x16.pcf.gz"},
    Recipe{"xm8x19",   8, 19, "misc/8x16.pcf.gz"},
    Recipe{"xm8x8",    8,  8, "misc/clR8x8.pcf.gz"},
    Recipe{"xm9x15",   9, 15, "misc/9x15.pcf.gz"},
    Recipe{"xm9x17",   9, 17, "misc/9x15.pcf.gz"},
    Recipe{"xm10x17", 10, 17, outline_font, 16},
    Recipe{"xm10x20", 10, 20, "misc/10x20.pcf.gz"},
    Recipe{"xm12x15", 12, 15, outline_font, 14},
    Recipe{"xm12x20", 12, 20, outline_font, 19},
    Recipe{"xm12x23", 12, 23, outline_font, 20},
    Recipe{"xm12x24", 12, 24, "misc/12x24.pcf.gz"},
    Recipe{"xm14x26", 14, 26, outline_font, 23},
    Recipe{"xm16x25", 16, 25, outline_font, 24},
};

// Where the characters above 127 come from when the source has none: the first of these that fits into the
// cell.
struct LatinFont {
    int width, height;
    std::string_view source;
};
inline constexpr std::array latin_fonts = {
    LatinFont{8, 13, "misc/8x13.pcf.gz"}, LatinFont{7, 13, "misc/7x13.pcf.gz"},
    LatinFont{6, 12, "misc/6x12.pcf.gz"}, LatinFont{6, 10, "misc/6x10.pcf.gz"},
    LatinFont{6,  9, "misc/6x9.pcf.gz"},  LatinFont{5,  8, "misc/5x8.pcf.gz"},
    LatinFont{4,  6, "misc/4x6.pcf.gz"},
};
// clang-format on

} // namespace kq::fonts
