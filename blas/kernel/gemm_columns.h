// The walk of the s, d and z kernels: columns in ascending order, in each the groups of a panel's rows.
#pragma once

#include "arith/prefetch.h"

namespace vor::blas {

// The lines of K elements of each of `count` columns of b, and of M of c. The next columns stand too far
// away for the hardware to guess them, and memory takes longer than one column. Behind the last one there
// may be nothing: a prefetch does not fault. (Not inlined, it would count as a function without effect.)
template <int M, int K, class T>
[[gnu::always_inline]] inline void prefetch_columns(int count, const T* b, int ldb, const T* c,
                                                    int ldc) {
    constexpr int line = 64 / sizeof(T);
    for (int j = 0; j < count; ++j, b += ldb, c += ldc) {
        for (int l = 0; l < K; l += line) prefetch(b + l);
        for (int i = 0; i < M; i += line) prefetch(c + i);
    }
}

// group(apanel, b, c) multiplies the G rows of one group, packed for K steps, by one column.
template <int M, int K, int G, class T, class F>
inline void column_by_column(int n, const T* apanel, const T* b, int ldb, T* c, int ldc, F group) {
    for (int j = 0; j < n; ++j, b += ldb, c += ldc) {
        prefetch_columns<M, K>(1, b + 2 * ldb, ldb, c + ldc, ldc);
        for (int i = 0; i < M; i += G) group(apanel + i * K, b, c + i);
    }
}

} // namespace vor::blas
