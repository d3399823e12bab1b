// Element-wise operations on n complex values: product, conjugating copy, zero. The single-precision
// forms work on vectors of two values; nothing needs alignment. With n < 1 nothing is touched.
#pragma once

#include "arith/lanes.h"

namespace vor::dft {

inline void multiply(const cfloat* a, const cfloat* b, cfloat* c, int n) {
    int k = 0;
    for (; k + 2 <= n; k += 2)
        _mm_storeu_ps(&c[k].re,
                      product_of_two<false>(_mm_loadu_ps(&b[k].re), _mm_loadu_ps(&a[k].re)));
    if (k < n) c[k] = a[k] * b[k];
}

inline void multiply(const cdouble* a, const cdouble* b, cdouble* c, int n) {
    for (int k = 0; k < n; ++k) c[k] = a[k] * b[k];
}

inline void conjugate(const cfloat* a, cfloat* b, int n) {
    const __m128 sign = _mm_setr_ps(0, -0.0F, 0, -0.0F);
    int k = 0;
    for (; k + 2 <= n; k += 2) _mm_storeu_ps(&b[k].re, _mm_xor_ps(_mm_loadu_ps(&a[k].re), sign));
    if (k < n) b[k] = conj(a[k]);
}

inline void conjugate(const cdouble* a, cdouble* b, int n) {
    for (int k = 0; k < n; ++k) b[k] = conj(a[k]);
}

inline void zero(cfloat* a, int n) {
    int k = 0;
    for (; k + 2 <= n; k += 2) _mm_storeu_ps(&a[k].re, _mm_setzero_ps());
    if (k < n) a[k] = {0, 0};
}

inline void zero(cdouble* a, int n) {
    for (int k = 0; k < n; ++k) a[k] = {0, 0};
}

} // namespace vor::dft
