// model: the work buffer that lines are read into.
#pragma once

namespace kq {

inline constexpr int buffer_size = 150000;
// buffer_size bytes, allocated first thing at start; null before.
extern char* buffer;
bool allocate_buffer();

} // namespace kq
