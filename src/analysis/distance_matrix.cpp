// model: the matrices of an analysis.
#include "analysis/distance_matrix.h"

#include "analysis/analysed.h"
#include "analysis/phylip_names.h"
#include "core/store.h"

#include <sys/mman.h>

namespace kq {

constinit float* dist = nullptr;
constinit std::int32_t* d1 = nullptr;
constinit std::int32_t* d2 = nullptr;

namespace {

// Of the matrices as they are, which libere_memoire_dist needs to give them back.
constinit std::size_t bytes_of_one = 0;

void* map_matrix()
{
    void* const block = mmap(nullptr, bytes_of_one, PROT_READ | PROT_WRITE,
                             MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    if (block == MAP_FAILED) return nullptr;
    madvise(block, bytes_of_one, MADV_HUGEPAGE); // rows are long, columns are read, too
    return block;
}

template <class Number>
void unmap(Number*& matrix)
{
    if (matrix) munmap(matrix, bytes_of_one);
    matrix = nullptr;
}

void free_matrices()
{
    unmap(dist);
    unmap(d1);
    unmap(d2);
}

} // namespace

std::uint64_t bytes_of_matrices(int n, int type)
{
    const auto cells = static_cast<std::uint64_t>(n) * static_cast<std::uint64_t>(n);
    return cells * sizeof(float) * (type == 0 ? 3 : 1);
}

int alloue_memoire_dist()
{
    const auto n = static_cast<std::size_t>(nb_spec_auto);
    bytes_of_one = n * n * sizeof(float);
    dist = static_cast<float*>(map_matrix());
    if (type_seq == 0) {
        d1 = static_cast<std::int32_t*>(map_matrix());
        d2 = static_cast<std::int32_t*>(map_matrix());
    }
    if (!dist || (type_seq == 0 && (!d1 || !d2))) {
        free_matrices();
        return -1;
    }
    ident_phylip.assign(n, PhylipName{});
    return 0;
}

void libere_memoire_dist()
{
    free_matrices();
    ident_phylip = {};
    retain = {};
}

} // namespace kq
