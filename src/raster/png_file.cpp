// format: writes pictures as PNG files.
#include "raster/png_file.h"

#include "raster/palette.h"
#include "raster/surface.h"

#include <png.h>

#include <cstdio>
#include <memory>
#include <vector>

namespace kq {

namespace {

struct FileCloser {
    void operator()(std::FILE* file) const noexcept { std::fclose(file); }
};

// libpng reports an error by a long jump to here: only trivial objects live in this function, the others
// belong to the caller.
bool write_rows(std::FILE* file, png_structp png, png_infop info, int width, int height,
                const png_color* colours, int colour_count, const unsigned char* const* rows)
{
    if (setjmp(png_jmpbuf(png)) != 0) return false;
    png_init_io(png, file);
    png_set_IHDR(png, info, static_cast<png_uint_32>(width), static_cast<png_uint_32>(height), 8,
                 PNG_COLOR_TYPE_PALETTE, PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT,
                 PNG_FILTER_TYPE_DEFAULT);
    png_set_PLTE(png, info, colours, colour_count);
    png_write_info(png, info);
    for (int y = 0; y < height; y++)
        png_write_row(png, rows[y]);
    png_write_end(png, info);
    return true;
}

bool write_file(std::FILE* file, const Surface& picture, const Palette& palette)
{
    std::vector<png_color> colours;
    for (int i = 0; i < palette.size(); i++) {
        const Rgb rgb = palette.colour(static_cast<std::uint8_t>(i));
        colours.push_back({rgb.red, rgb.green, rgb.blue});
    }
    std::vector<const unsigned char*> rows;
    for (int y = 0; y < picture.height(); y++)
        rows.push_back(picture.row(y).data());

    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
    png_infop info = png ? png_create_info_struct(png) : nullptr;
    const bool written = info && write_rows(file, png, info, picture.width(), picture.height(),
                                            colours.data(), static_cast<int>(colours.size()), rows.data());
    png_destroy_write_struct(&png, &info);
    return written && std::fflush(file) == 0;
}

} // namespace

bool write_png(const std::string& path, const Surface& picture, const Palette& palette)
{
    const std::string unfinished = path + ".part";
    std::unique_ptr<std::FILE, FileCloser> file(std::fopen(unfinished.c_str(), "wb"));
    if (!file) return false;
    const bool written = write_file(file.get(), picture, palette);
    const bool closed = std::fclose(file.release()) == 0;
    if (written && closed && std::rename(unfinished.c_str(), path.c_str()) == 0) return true;
    std::remove(unfinished.c_str());
    return false;
}

} // namespace kq
