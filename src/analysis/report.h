// kernel: how a long computation says how far it is, and learns that it is to stop.
#pragma once

#include <cstdint>
#include <functional>

namespace kq {

// Called from the thread that started the computation, at least twenty times a second, with the units done so
// far (pairs, joins, lines...). False asks the computation to stop: it then returns within a twentieth of a
// second, on all its threads, and says that it was stopped.
using Report = std::function<bool(std::int64_t done)>;

} // namespace kq
