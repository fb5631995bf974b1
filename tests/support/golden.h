// Golden files: what a test expects to see, kept as text in tests/golden. UPDATE_GOLDEN=1 in the environment
// rewrites them; the difference is then reviewed like any other change.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace kq::test {

// Compares with tests/golden/<file>; on a mismatch both are shown, the differing lines marked.
testing::AssertionResult matches_golden(std::string_view file, const std::string& text);
// The same with the screen as it is, in tests/golden/<name>.txt.
testing::AssertionResult matches_golden_screen(std::string_view name);

} // namespace kq::test

#define EXPECT_GOLDEN(file, text) EXPECT_TRUE(::kq::test::matches_golden(file, text))
#define EXPECT_SCREEN(name) EXPECT_TRUE(::kq::test::matches_golden_screen(name))
