// platform: large pages for large blocks of memory.
#pragma once

#include <cstddef>

namespace kq {

// Asks for large pages in a block that has not been touched: one that is filled here and there, or whole and
// at once, spares most of its page faults and of the work of finding its pages.
void prefer_large_pages(void* block, std::size_t bytes);

} // namespace kq
