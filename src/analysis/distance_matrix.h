// model: the matrices of an analysis.
//
// n = nb_spec_auto rows and columns, row-major, cell (i, j) at [i * n + j]; use cell() instead of the
// arithmetic. i and j are positions in cor_auto (0-based), and a pair is handled once, with i > j. Null
// outside an analysis.
#pragma once

#include <cstddef>
#include <cstdint>

namespace kq {

// The distance of a pair in the lower triangle, dist(i, j); building a tree destroys it. For nucleic acids
// the upper triangle keeps dist(j, i) = N, the number of comparable positions.
extern float* dist;
// Nucleic acids only, counted once: d1(i, j) transitions, d1(j, i) transversions, d2(i, j) deletions (a gap
// against a base), d2(j, i) other differences.
extern std::int32_t* d1;
extern std::int32_t* d2;

inline std::size_t cell(int i, int j, int n)
{
    return static_cast<std::size_t>(i) * static_cast<std::size_t>(n) + static_cast<std::size_t>(j);
}

// What the matrices and the tree of n species take at most, in bytes.
std::uint64_t bytes_of_matrices(int n, int type);

// Allocates dist and, for nucleic acids, d1 and d2, all zero, and the PHYLIP names, for nb_spec_auto species;
// -1 when the memory of this machine does not suffice, and then nothing is allocated, else 0. A matrix takes
// no memory before it is written to.
int alloue_memoire_dist();
// Frees retain, the PHYLIP names and the matrices, each only if set.
void libere_memoire_dist();

} // namespace kq
