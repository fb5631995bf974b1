// platform: large pages for large blocks of memory.
#include "core/large_pages.h"

#include <sys/mman.h>

#include <cstdint>

namespace kq {

void prefer_large_pages(void* block, std::size_t bytes)
{
    constexpr std::uintptr_t page = std::uintptr_t{1} << 21;
    const auto begin = reinterpret_cast<std::uintptr_t>(block);
    const std::uintptr_t first = (begin + page - 1) / page * page, end = (begin + bytes) / page * page;
    if (first < end) madvise(reinterpret_cast<void*>(first), end - first, MADV_HUGEPAGE);
}

} // namespace kq
