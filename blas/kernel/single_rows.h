// Rows of B in single precision: one row as a float or four as a vector, so that one loop does both.
#pragma once

#include "arith/lanes.h"

namespace vor::blas {

// L is a float or a vector.
template <class L>
struct SingleRows {
    static constexpr int kCount = sizeof(L) / sizeof(float);

    static L load(const float* p) {
        if constexpr (kCount == 4)
            return _mm_loadu_ps(p);
        else
            return *p;
    }
    static void store(float* p, L v) {
        if constexpr (kCount == 4)
            _mm_storeu_ps(p, v);
        else
            *p = v;
    }
    // x in every row.
    static L all(float x) {
        if constexpr (kCount == 4)
            return _mm_set1_ps(x);
        else
            return x;
    }
};

// Calls work.rows<L, V>(q) for all rows q of `count`: V lots of L at a time, as many as fill registers.
template <class W>
inline void for_rows(int count, const W& work) {
    int q = 0;
    for (; q + 16 <= count; q += 16) work.template rows<__m128, 4>(q);
    for (; q + 4 <= count; q += 4) work.template rows<__m128, 1>(q);
    for (; q < count; ++q) work.template rows<float, 1>(q);
}

// sum[v] + or - b[l * step + ...] * f[l * f_step] over ascending l < count, rounded at each operation.
template <bool Minus, int V, class L>
[[gnu::always_inline]] inline void add_row_columns(L* sum, int count, const float* b, int step,
                                                   const float* f, int f_step) {
    using Rows = SingleRows<L>;
    L s[V];
#pragma GCC unroll 4
    for (int v = 0; v < V; ++v) s[v] = sum[v];
    for (int l = 0; l < count; ++l, b += step, f += f_step) {
        const L factor = Rows::all(*f);
#pragma GCC unroll 4
        for (int v = 0; v < V; ++v) {
            const L product = Rows::load(b + v * Rows::kCount) * factor;
            s[v] = Minus ? s[v] - product : s[v] + product;
        }
    }
#pragma GCC unroll 4
    for (int v = 0; v < V; ++v) sum[v] = s[v];
}

} // namespace vor::blas
