// model: the work buffer.
#include "core/work_buffer.h"

#include <memory>
#include <new>

namespace kq {

constinit char* buffer = nullptr;

bool allocate_buffer()
{
    static std::unique_ptr<char[]> block;
    if (!block) block.reset(new (std::nothrow) char[buffer_size]());
    buffer = block.get();
    return buffer != nullptr;
}

} // namespace kq
