// Golden files: what a test expects to see, kept as text in tests/golden. UPDATE_GOLDEN=1 in the environment
// rewrites them; the difference is then reviewed like any other change.
#pragma once

#include "screen/text.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace kq::test {

// The text of tests/golden/<name>.txt; `actual` itself once it has been rewritten.
std::string golden_text(std::string_view name, const std::string& actual);

} // namespace kq::test

#define EXPECT_SCREEN(name) EXPECT_EQ(::kq::test::golden_text(name, ::kq::screen_dump()), ::kq::screen_dump())
