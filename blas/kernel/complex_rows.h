// Rows of a column of complex numbers in single precision, two to a vector or one alone, and products of
// such a vector with one number.
#pragma once

#include "arith/lanes.h"

namespace vor::blas {

// Both halves of a vector are addressed as what they are moved as.
inline const __m64* half(const cfloat* x) {
    return reinterpret_cast<const __m64*>(x);
}

// R rows, one behind the other; of one row the upper half is zero.
template <int R>
inline __m128 load_rows(const cfloat* x) {
    if constexpr (R == 2) return load<false>(&x->re);
    return _mm_loadl_pi(_mm_setzero_ps(), half(x));
}
template <int R>
inline void store_rows(cfloat* x, __m128 value) {
    if constexpr (R == 2)
        store<false>(&x->re, value);
    else
        _mm_storel_pi(reinterpret_cast<__m64*>(x), value);
}

// A factor of both rows.
struct RowFactor {
    __m128 re, im; // im with the signs of a product

    explicit RowFactor(cfloat x)
        : re(_mm_set1_ps(x.re)), im(_mm_setr_ps(-x.im, x.im, -x.im, x.im)) {}
    __m128 times(__m128 x) const {
        return _mm_add_ps(_mm_mul_ps(x, re), _mm_mul_ps(swap_parts(x), im));
    }
};

} // namespace vor::blas
