// screen: the palette entries of the alignment display.
#include "editor/colour_scale.h"

#include "editor/colour_arithmetic.h"
#include "raster/grx.h"

namespace kq {

constinit std::array<int, colour_classes * conservation_levels> bg_scale{};
constinit std::array<int, colour_classes * conservation_levels> fg_scale{};

void build_color_scale()
{
    const GrColor* basic_colours = GrAllocEgaColors();
    for (int k = 0; k < colour_classes; k++) {
        ScaleColour basic;
        GrQueryColor(basic_colours[k], &basic.r, &basic.g, &basic.b);
        for (int level = 0; level < conservation_levels; level++) {
            const auto entry = static_cast<std::size_t>(k * conservation_levels + level);
            const ScaleColour background = scale_background(k, level, basic);
            const int grey = scale_text_grey(k, level);
            bg_scale[entry] = GrAllocColor(background.r, background.g, background.b);
            fg_scale[entry] = GrAllocColor(grey, grey, grey);
        }
    }
}

} // namespace kq
