// Rows of B in single precision: one row as a float or four as a vector, so that one loop does both.
#pragma once

#include <xmmintrin.h>

namespace vor {

template <class L>
inline constexpr int kLanes = sizeof(L) / sizeof(float);

template <class L>
inline L load_rows(const float* p) {
    if constexpr (kLanes<L> == 4)
        return _mm_loadu_ps(p);
    else
        return *p;
}

inline void store_rows(float* p, __m128 v) {
    _mm_storeu_ps(p, v);
}
inline void store_rows(float* p, float v) {
    *p = v;
}

template <class L>
inline L every_row(float x) {
    if constexpr (kLanes<L> == 4)
        return _mm_set1_ps(x);
    else
        return x;
}

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
[[gnu::always_inline]] inline void add_columns(L* sum, int count, const float* b, int step,
                                               const float* f, int f_step) {
    L s[V];
#pragma GCC unroll 4
    for (int v = 0; v < V; ++v) s[v] = sum[v];
    for (int l = 0; l < count; ++l, b += step, f += f_step) {
        const L factor = every_row<L>(*f);
#pragma GCC unroll 4
        for (int v = 0; v < V; ++v) {
            const L product = load_rows<L>(b + v * kLanes<L>) * factor;
            s[v] = Minus ? s[v] - product : s[v] + product;
        }
    }
#pragma GCC unroll 4
    for (int v = 0; v < V; ++v) sum[v] = s[v];
}

} // namespace vor
