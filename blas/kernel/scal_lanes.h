// The 4-wide body of scal: x := alpha*x on neighbouring elements from a 16-byte boundary on, every operation
// rounded. Whole vectors only; each function gives the number of elements done.
#pragma once

#include "arith/lanes.h"

namespace vor::blas {

template <int Round>
inline int scal_rounds(int i, int n, __m128 factor, float* x) {
    for (; i + Round <= n; i += Round)
#pragma GCC unroll 6
        for (int k = i; k < i + Round; k += 4)
            _mm_store_ps(x + k, _mm_mul_ps(_mm_load_ps(x + k), factor));
    return i;
}

inline int scal_vectors(int n, float alpha, float* x) {
    const __m128 factor = _mm_set1_ps(alpha);
    const int done = scal_rounds<24>(0, n, factor, x);
    return scal_rounds<4>(done, n, factor, x);
}

// Two complex numbers in a vector: alpha.re*(re, im) + alpha.im*(-im, re).
inline int scal_vectors(int n, const cfloat& alpha, cfloat* x) {
    const __m128 re = _mm_set1_ps(alpha.re);
    const __m128 im = _mm_set_ps(alpha.im, -alpha.im, alpha.im, -alpha.im);
    int i = 0;
    for (; i + 4 <= n; i += 4)
#pragma GCC unroll 2
        for (int k = i; k < i + 4; k += 2) {
            const __m128 v = _mm_load_ps(&x[k].re);
            _mm_store_ps(&x[k].re, _mm_add_ps(_mm_mul_ps(v, re), _mm_mul_ps(swap_parts(v), im)));
        }
    return i;
}

} // namespace vor::blas
