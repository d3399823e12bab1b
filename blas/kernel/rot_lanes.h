// The 4-wide body of rot: (x, y) := (c*x + s*y, c*y - s*x) on neighbouring elements, every operation rounded.
#pragma once

#include "arith/lanes.h"
#include "arith/prefetch.h"

namespace vor::blas {

// x is aligned, y as well if AlignedY. Whole rounds only; gives the number of elements done.
template <bool AlignedY>
int rot_vectors(int n, float* x, float* y, float c_, float s_) {
    const __m128 c = _mm_set1_ps(c_), s = _mm_set1_ps(s_);
    int i = 0;
    for (; i + 8 <= n; i += 8) {
        prefetch(x + i, 64), prefetch(y + i, 64);
#pragma GCC unroll 2
        for (int k = i; k < i + 8; k += 4) {
            const __m128 xk = _mm_load_ps(x + k), yk = load<AlignedY>(y + k);
            _mm_store_ps(x + k, _mm_add_ps(_mm_mul_ps(c, xk), _mm_mul_ps(s, yk)));
            store<AlignedY>(y + k, _mm_sub_ps(_mm_mul_ps(c, yk), _mm_mul_ps(s, xk)));
        }
    }
    return i;
}

} // namespace vor::blas
