// kernel: how a text too long for one string is handed over.
#pragma once

#include <functional>
#include <string_view>

namespace kq {

// Takes the next piece of a text. False asks whoever makes the text to stop, and to return false as well.
using PutText = std::function<bool(std::string_view piece)>;

} // namespace kq
