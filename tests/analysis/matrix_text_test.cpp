// The numbers of a matrix against printf.
#include "analysis/matrix_text.h"
#include "screen/strings.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>
#include <random>
#include <vector>

using namespace kq;

namespace {

std::string printed(const std::vector<float>& values)
{
    std::string text;
    for (const float v : values) {
        const char* const format = v > 1000 ? "%10.0f" : v > 100 ? "%10.4f" : v > 10 ? "%10.5f" : "%10.6f";
        text += text_format(format, static_cast<double>(v));
    }
    return text;
}

void expect_as_printed(const std::vector<float>& values)
{
    std::string all = "name";
    append_numbers(all, values);
    if (all == "name" + printed(values)) return;
    for (const float v : values) { // name the first one that differs
        std::string one;
        append_numbers(one, std::vector{v});
        ASSERT_EQ(one, printed({v})) << std::hexfloat << v;
    }
    FAIL() << "values that are right alone are wrong one after the other";
}

} // namespace

TEST(MatrixText, IsWhatPrintfWrites)
{
    std::vector<float> values = {-0.0F, 123456792.0F, 9999998976.0F, 1e10F, -1234.5F, 3e38F, -3e38F, 1e-45F};
    for (const float limit :
         {0.F, 0.5F, 1.F, 9.9999995F, 10.F, 99.999995F, 100.F, 999.99995F, 1000.F, 1e10F,
          std::numeric_limits<float>::infinity(), std::numeric_limits<float>::quiet_NaN()})
        for (const float sign : {1.F, -1.F})
            for (const float v : {std::nextafter(limit, 0.F), limit, std::nextafter(limit, 1e30F)})
                values.push_back(std::copysign(v, sign));
    // Halves of the last decimal that a float holds exactly, and its neighbours.
    for (int i = 1; i < 4000; i++)
        for (const float unit : {0x1p-7F, 0x1p-6F, 0x1p-5F, 0.5F, 0x1p-12F}) {
            const float v = static_cast<float>(i) * unit;
            values.insert(values.end(), {std::nextafter(v, 0.F), v, std::nextafter(v, 1e9F)});
        }
    expect_as_printed(values);

    std::mt19937 random(20071);
    const auto draw = [&random](const auto& make) {
        std::vector<float> drawn(200000);
        for (float& v : drawn)
            v = make(static_cast<std::uint32_t>(random()));
        expect_as_printed(drawn);
    };
    draw([](std::uint32_t bits) { return std::bit_cast<float>(bits); });
    draw([](std::uint32_t bits) { return static_cast<float>(bits) * 0x1p-32F; });
    draw([](std::uint32_t bits) { return static_cast<float>(bits % 100001) / 1000.F; }); // percentages
    draw([](std::uint32_t bits) { return static_cast<float>(bits % 150000) * 0.0625F; });
    expect_as_printed({});
}

TEST(MatrixText, ShortNumbers)
{
    const std::pair<double, const char*> cases[] = {
        {0, "0.000"},  {0.9994, "0.999"}, {0.9996, "1.000"}, {1, " 1.00"},     {9.99, " 9.99"},
        {10, " 10.0"}, {99.96, "100.0"},  {100, "  100"},    {12345, "12345"}, {-2.5, "-2.500"},
    };
    for (const auto& [value, text] : cases)
        EXPECT_EQ(short_number(value), text);
}
