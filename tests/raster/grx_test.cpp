// The interface as the text layer uses it, over the memory driver.
#include "raster/grx.h"
#include "raster/key_names.h"
#include "raster/keys.h"
#include "support/ali_folder.h"

#include <gtest/gtest.h>
#include <png.h>

#include <array>

namespace kq {
namespace {

class Grx : public testing::Test {
protected:
    const test::Folder folder_;

    void SetUp() override
    {
        setenv("KQ_SCREENS", folder_.path().c_str(), 1);
        GrMemoryScript("");
        ASSERT_TRUE(open(80, 40));
    }
    void TearDown() override
    {
        GrMemorySetScreenWriter(nullptr);
        unsetenv("KQ_SCREENS");
    }
    static bool open(int width, int height)
    {
        return GrSetMode(GR_width_height_color_graphics, width, height, gr_max_colors) != 0;
    }
    static std::string keys_to_the_end()
    {
        std::string keys;
        try {
            for (;;)
                keys += key_name(GrKeyRead()) + ' ';
        } catch (const EndOfScript&) {
            return keys + "end";
        }
    }
};

struct Picture {
    png_image header{};
    std::vector<unsigned char> rgb;

    explicit Picture(const std::string& path)
    {
        header.version = PNG_IMAGE_VERSION;
        if (png_image_begin_read_from_file(&header, path.c_str()) == 0) return;
        header.format = PNG_FORMAT_RGB;
        rgb.resize(PNG_IMAGE_SIZE(header));
        if (png_image_finish_read(&header, nullptr, rgb.data(), 0, nullptr) == 0) rgb.clear();
    }
    std::array<int, 3> at(int x, int y) const
    {
        const auto first = (static_cast<std::size_t>(y) * header.width + static_cast<std::size_t>(x)) * 3;
        return {rgb.at(first), rgb.at(first + 1), rgb.at(first + 2)};
    }
};

TEST_F(Grx, ScreensShowWhatWasDrawnBeforeTheNextKey)
{
    std::vector<std::string> written;
    GrMemorySetScreenWriter([&](const std::string& path) { written.push_back(path); });
    const GrColor odd = GrAllocColor(10, 20, 30);
    GrMemoryScript("screen one F1 screen two");
    GrFilledBox(0, 0, 79, 39, 4);
    EXPECT_EQ(GrKeyRead(), key::f1);
    GrFilledBox(10, 10, 19, 19, odd);
    EXPECT_EQ(keys_to_the_end(), "end");
    EXPECT_EQ(written, (std::vector<std::string>{folder_.path("/one"), folder_.path("/two")}));
    const Picture one(folder_.path("one.png")), two(folder_.path("two.png"));
    ASSERT_EQ(two.header.width, 80U);
    ASSERT_EQ(two.header.height, 40U);
    EXPECT_EQ(one.at(15, 15), (std::array{0xAA, 0, 0}));
    EXPECT_EQ(two.at(15, 15), (std::array{10, 20, 30}));
    EXPECT_EQ(two.at(20, 20), (std::array{0xAA, 0, 0}));
}

TEST_F(Grx, CursorLiesOverThePictureWithoutChangingIt)
{
    const std::array<unsigned char, 6> bitmap = {0, 0, 0, 1, 1, 1};
    const auto cursor = GrBuildCursor(bitmap.data(), 3, 2);
    GrClearScreen(2);
    GrPlot(11, 11, 15);
    GrMoveCursor(*cursor, 10, 10);
    GrDisplayCursor(*cursor);
    EXPECT_EQ(GrPixel(10, 11), 2);
    const std::string path = folder_.path("cursor.png");
    ASSERT_TRUE(GrSavePng(path));
    const std::array<int, 3> green = {0, 0xAA, 0}, white = {255, 255, 255}, black = {0, 0, 0};
    {
        const Picture picture(path);
        EXPECT_EQ(picture.at(10, 10), green);
        EXPECT_EQ(picture.at(10, 11), white);
        EXPECT_EQ(picture.at(11, 11), black) << "a white pixel under the cursor";
        EXPECT_EQ(picture.at(13, 11), green);
    }
    GrMoveCursor(*cursor, 78, 39); // over the corner
    ASSERT_TRUE(GrSavePng(path));
    EXPECT_EQ(Picture(path).at(10, 11), green);
    const auto other = GrBuildCursor(bitmap.data(), 3, 2);
    GrDisplayCursor(*other);
    EXPECT_FALSE(cursor->shown);
    EXPECT_FALSE(GrSavePng(folder_.path("none/x.png")));
}

TEST_F(Grx, ReopeningKeepsThePaletteAndClearsTheScreen)
{
    const GrColor colour = GrAllocColor(77, -5, 300);
    EXPECT_GE(colour, 16);
    GrClearScreen(colour);
    ASSERT_TRUE(open(33, 21));
    EXPECT_EQ(GrSizeX(), 33);
    EXPECT_EQ(GrSizeY(), 21);
    EXPECT_EQ(GrPixel(32, 20), 0);
    EXPECT_EQ(GrPixel(33, 20), -1);
    EXPECT_EQ(GrAllocColor(77, 0, 255), colour);
    EXPECT_FALSE(open(0, 20));
    EXPECT_FALSE(open(20, 1000000));
    EXPECT_NE(GrDriverError(), "");
    EXPECT_EQ(GrSizeX(), 33);
}

// Opening a display is done once a process, so each case gets one of its own.
class GrxProcess : public Grx {
protected:
    void SetUp() override { GTEST_FLAG_SET(death_test_style, "threadsafe"); }
    std::string script(const std::string& text) const
    {
        folder_.write("keys", text);
        return folder_.path("keys");
    }
    // Opens a window in this environment and reads keys for ever; ends with status 3 when there is no window.
    [[noreturn]] static void run(const char* driver, const char* display, const char* keys)
    {
        setenv("GRX20DRV", driver, 1);
        setenv("DISPLAY", display, 1);
        setenv("KQ_SCRIPT", keys, 1);
        if (!open(80, 40)) {
            std::fputs(GrDriverError().c_str(), stderr);
            std::exit(3);
        }
        for (;;)
            GrKeyRead();
    }
};

TEST_F(GrxProcess, AScriptedRunEndsWithItsScript)
{
    EXPECT_EXIT(run("memory", "", script("F1 F2").c_str()), testing::ExitedWithCode(0),
                "the script of keys has ended");
    EXPECT_EXIT(
        {
            GrMemorySetEndHandler([] { std::exit(7); });
            run("memory", "", script("F1 F2").c_str());
        },
        testing::ExitedWithCode(7), "");
}

TEST_F(GrxProcess, WithoutAWindowASentenceSaysWhy)
{
    EXPECT_EXIT(run("xwin", "", ""), testing::ExitedWithCode(3), "DISPLAY is not set");
    EXPECT_EXIT(run("", "127.0.0.1:9999", ""), testing::ExitedWithCode(3),
                "\"127.0.0.1:9999\".*cannot be reached");
    EXPECT_EXIT(run("svga gw 80", "", ""), testing::ExitedWithCode(3), "\"svga\"");
    EXPECT_EXIT(run("memory", "", ""), testing::ExitedWithCode(3), "KQ_SCRIPT");
    EXPECT_EXIT(run("memory", "", "/nonexistent"), testing::ExitedWithCode(3), "cannot be read");
    EXPECT_EXIT(run("memory", "", "/"), testing::ExitedWithCode(3), "cannot be read");
    EXPECT_EXIT(run("memory", "", script("F1\nF13\nF14").c_str()), testing::ExitedWithCode(3),
                "line 2: .*F13.*\n.*line 3: .*F14");
}

} // namespace
} // namespace kq
