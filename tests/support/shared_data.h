// Where the real alignments for tests are, when they are there at all.
#pragma once

#include <optional>
#include <string>

namespace kq::test {

// The folder of real alignment sets: KQ_SHARED_DATA, else ../shared/data beside the sources; nothing when
// absent.
std::optional<std::string> shared_data();

} // namespace kq::test
