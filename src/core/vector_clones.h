// kernel: loops compiled once for the baseline processor and once for wider vectors.
#pragma once

// Before a function definition: the compiler makes a version for each target and the loader picks one. The
// results are the same: the compiler neither reorders floating-point sums nor fuses a product with one
// (-ffp-contract=off).
#if defined(__x86_64__) && defined(__gnu_linux__)
#define KQ_VECTOR_CLONES [[gnu::target_clones("avx2", "default")]]
#else
#define KQ_VECTOR_CLONES
#endif
