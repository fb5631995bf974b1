#include "screen/strings.h"

#include <gtest/gtest.h>

#include <array>

namespace kq {
namespace {

TEST(Strings, CutsIntoFixedFields)
{
    std::array<char, 5> field{};
    copy_field(field, "abcdefgh");
    EXPECT_STREQ(field.data(), "abcd");
    copy_field(field, "x");
    EXPECT_STREQ(field.data(), "x");
    copy_field(std::span<char>(), "x"); // nothing to write to
}

TEST(Strings, WrapsAtBlanksAndBreaksLongWords)
{
    using Rows = std::vector<std::string>;
    struct Case {
        const char* text;
        int width;
        Rows rows;
    };
    const Case cases[] = {
        {"", 5, {""}},
        {"abcde", 5, {"abcde"}},
        {"abc de", 5, {"abc", "de"}},
        {"abcde fg", 5, {"abcde", "fg"}},
        {"/long/path x", 4, {"/lon", "g/pa", "th x"}},
        {"a b c", 0, {"a", "b", "c"}},
        {" abcdef", 3, {" ab", "cde", "f"}},
    };
    for (const Case& c : cases)
        EXPECT_EQ(wrap_text(c.text, c.width), c.rows) << c.text;
}

} // namespace
} // namespace kq
