// model: the key reference, printed from the key tables of the screens.
#pragma once

#include <string>

namespace kq {

// Every screen's keys as Markdown, in the order of the tables: what docs/keys.md holds.
std::string key_reference();

} // namespace kq
