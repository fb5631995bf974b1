// kernel: how large sets of positions are, for pairs of sequences that are stored as bit planes.
#include "analysis/plane_counts.h"

namespace kq {

std::vector<Instructions> usable_instructions()
{
    std::vector<Instructions> usable{Instructions::baseline};
#if defined(__x86_64__)
    if (__builtin_cpu_supports("avx2")) usable.push_back(Instructions::avx2);
    if (__builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512vpopcntdq"))
        usable.push_back(Instructions::avx512);
#endif
    return usable;
}

} // namespace kq
