#include "screen/strings.h"

#include <gtest/gtest.h>

namespace kq {
namespace {

TEST(Strings, WrapsAtBlanksAndBreaksLongWords)
{
    using Rows = std::vector<std::string>;
    const struct {
        const char* text;
        int width;
        Rows rows;
    } cases[] = {
        {"", 5, {""}},
        {"abcde", 5, {"abcde"}},
        {"abc de", 5, {"abc", "de"}},
        {"abcde fg", 5, {"abcde", "fg"}},
        {"/long/path x", 4, {"/lon", "g/pa", "th x"}},
        {"a b c", 0, {"a", "b", "c"}},
        {" abcdef", 3, {" ab", "cde", "f"}},
    };
    for (const auto& c : cases)
        EXPECT_EQ(wrap_text(c.text, c.width), c.rows) << c.text;
}

} // namespace
} // namespace kq
