// The 4-wide body of axpy: y := alpha*x + y on neighbouring elements, every operation rounded.
#pragma once

#include "arith/lanes.h"
#include "arith/prefetch.h"

namespace vor::blas {

// y is aligned, x as well if AlignedX. Whole rounds only; gives the number of elements done.
template <bool AlignedX>
inline int axpy_vectors(int n, float alpha, const float* x, float* y) {
    constexpr int kRound = AlignedX ? 16 : 8;
    const __m128 factor = _mm_set1_ps(alpha);
    int i = 0;
    for (; i + kRound <= n; i += kRound)
#pragma GCC unroll 4
        for (int k = i; k < i + kRound; k += 4) {
            const __m128 product = _mm_mul_ps(load<AlignedX>(x + k), factor);
            _mm_store_ps(y + k, _mm_add_ps(product, _mm_load_ps(y + k)));
        }
    return i;
}

// Two complex numbers in a vector: alpha.re*(re, im) + alpha.im*(-im, re).
template <bool AlignedX, bool AlignedY>
inline int axpy_vectors(int n, const cfloat& alpha, const cfloat* x, cfloat* y) {
    const __m128 re = _mm_set1_ps(alpha.re);
    const __m128 im = _mm_set_ps(alpha.im, -alpha.im, alpha.im, -alpha.im);
    int i = 0;
    for (; i + 4 <= n; i += 4) {
        prefetch(x + i, 64);
#pragma GCC unroll 2
        for (int k = i; k < i + 4; k += 2) {
            const __m128 v = load<AlignedX>(&x[k].re);
            const __m128 product = _mm_add_ps(_mm_mul_ps(v, re), _mm_mul_ps(swap_parts(v), im));
            store<AlignedY>(&y[k].re, _mm_add_ps(product, load<AlignedY>(&y[k].re)));
        }
    }
    return i;
}

inline int axpy_vectors(int n, const cfloat& alpha, const cfloat* x, cfloat* y) {
    if (!aligned(y)) return axpy_vectors<false, false>(n, alpha, x, y);
    return aligned(x) ? axpy_vectors<true, true>(n, alpha, x, y)
                      : axpy_vectors<false, true>(n, alpha, x, y);
}

} // namespace vor::blas
