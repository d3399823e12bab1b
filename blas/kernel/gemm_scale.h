// C := beta * C for an m by n matrix. With beta = 0 the elements become 0 without being read, with
// beta = 1 nothing happens.
#pragma once

#include "arith/lanes.h"

#include <string.h>

extern "C" {
// The s engine's own: zeros without reading C; a product with any beta, 0 and 1 included.
void vor_blas_sscalmz(const int* m, const int* n, float* c, const int* ldc);
void vor_blas_sscalm(const int* m, const int* n, const float* beta, float* c, const int* ldc);
}

namespace vor::blas {

// x * y in the arithmetic of the type: float rounds at every operation, double once, at the end.
template <class T>
constexpr T scaled(T x, T y) {
    using W = work_t<T>;
    return element<T>(number<W>(x) * number<W>(y));
}

// Whether 1 * x + y is x + y for all floats: not while subnormal results are flushed to zero. (With
// nothing to add, a signalling NaN tells.)
inline bool one_is_neutral() {
    return _MM_GET_FLUSH_ZERO_MODE() == _MM_FLUSH_ZERO_OFF;
}

// All bits 0 is the number 0 in every type. In a short column a call would cost more than the stores;
// the empty statement keeps the compiler from making one of them.
template <class T>
void zero_matrix(int m, int n, T* c, int ldc) {
    constexpr int kShort = 16;
    for (int j = 0; j < n; ++j, c += ldc) {
        if (m > kShort) {
            memset(c, 0, static_cast<size_t>(m) * sizeof(T));
            continue;
        }
        for (int i = 0; i < m; ++i) {
            c[i] = T{};
            asm volatile("");
        }
    }
}

template <class T>
void scale_matrix(int m, int n, T beta, T* c, int ldc) {
    if (is_one(beta)) return;
    if (is_zero(beta)) return zero_matrix(m, n, c, ldc);
    for (int j = 0; j < n; ++j)
        for (int i = 0; i < m; ++i) c[i + j * ldc] = scaled(c[i + j * ldc], beta);
}

} // namespace vor::blas
