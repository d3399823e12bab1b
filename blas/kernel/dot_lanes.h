// The 4-wide bodies of dot, and of dotu and dotc: sums in single precision, every operation rounded.
//
// The number of partial sums and the order in which they are added fix every bit of the result.
#pragma once

#include "arith/lanes.h"
#include "arith/prefetch.h"
#include "blas/kernel/product_sums.h"

namespace vor::blas {

// y is aligned, x as well if AlignedX. The sum starts from `start`, in lane 0.
template <bool AlignedX>
float dot_vectors(int n, float start, const float* x, const float* y) {
    const auto products = [&](int i) {
        return _mm_mul_ps(load<AlignedX>(x + i), _mm_load_ps(y + i));
    };
    __m128 acc0 = _mm_set_ss(start), acc1 = _mm_setzero_ps();
    int i = 0;
    for (; i + 16 <= n; i += 16) {
        if constexpr (!AlignedX) {
            prefetch(x + i, 96), prefetch(x + i, 128);
            prefetch(y + i, 96), prefetch(y + i, 128);
        }
        acc0 = _mm_add_ps(acc0, products(i));
        acc1 = _mm_add_ps(acc1, products(i + 4));
        acc0 = _mm_add_ps(acc0, products(i + 8));
        acc1 = _mm_add_ps(acc1, products(i + 12));
    }
    float sum = sum_of_halves(_mm_add_ps(acc0, acc1));
    for (; i < n; ++i) sum += x[i] * y[i];
    return sum;
}

// Lanes (0, 1) of `direct` hold the sums of (re*re, im*im), of `crossed` those of (re*im, im*re);
// lanes (2, 3) the same for every other element.
struct VectorSums {
    __m128 direct, crossed;

    void add(__m128 x, __m128 y) {
        direct = _mm_add_ps(direct, _mm_mul_ps(x, y));
        crossed = _mm_add_ps(crossed, _mm_mul_ps(x, swap_parts(y)));
    }
};

inline ProductSums<float> fold(const VectorSums& a, const VectorSums& b) {
    const __m128 direct = _mm_add_ps(a.direct, b.direct);
    const __m128 crossed = _mm_add_ps(a.crossed, b.crossed);
    float sums[4];
    _mm_storeu_ps(sums, _mm_add_ps(_mm_movelh_ps(direct, crossed), _mm_movehl_ps(crossed, direct)));
    return {sums[0], sums[1], sums[2], sums[3]};
}

// The sums of n more elements; y is aligned if AlignedY, x if AlignedX.
template <bool AlignedX, bool AlignedY>
ProductSums<float> sums_vectors(int n, const ProductSums<float>& start, const cfloat* x,
                                const cfloat* y) {
    const __m128 zero = _mm_setzero_ps();
    VectorSums a{_mm_set_ps(0, 0, start.ii, start.rr), _mm_set_ps(0, 0, start.ir, start.ri)};
    VectorSums b{zero, zero};
    int i = 0;
    for (; i + 4 <= n; i += 4) {
        a.add(load<AlignedX>(&x[i].re), load<AlignedY>(&y[i].re));
        b.add(load<AlignedX>(&x[i + 2].re), load<AlignedY>(&y[i + 2].re));
    }
    ProductSums<float> sums = fold(a, b);
    for (; i < n; ++i) sums.add(x[i], y[i]);
    return sums;
}

} // namespace vor::blas
