// dotu, dotc: sum of x[i]*y[i], sum of conj(x[i])*y[i], complex; 0 with n < 1.
//
// Four real sums (of re*re, im*im, re*im, im*re) are kept apart and put together at the end, so that
// both routines run the same loops. cdot with equal steps of 1 or -1 works in single precision, two
// complex numbers to a vector; everything else in extended precision, rounded at the end.
#include "blas/level1/engines.h"
#include "blas/level1/vector.h"
#include "serv/entry.h"
#include "vor_blas.h"

namespace {

using namespace vor;

template <int Group, class T>
[[gnu::always_inline]] inline ProductSums<extended> sums_extended(int n, const T* x, int incx,
                                                                  const T* y, int incy) {
    ProductSums<extended> sums;
    in_rounds<Group>(
        n, [] {},
        [&] {
            sums.add(*x, *y);
            x += incx;
            y += incy;
        });
    return sums;
}

template <class T>
ProductSums<extended> sums_strided(int n, const T* x, int incx, const T* y, int incy) {
    return sums_extended<2>(n, walk_start(x, n, incx), incx, walk_start(y, n, incy), incy);
}

inline bool is_unit_pair(int incx, int incy) {
    return incx == incy && (incx == 1 || incx == -1);
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

ProductSums<float> sums_single(int n, const cfloat* x, const cfloat* y) {
    ProductSums<float> sums;
    const int prefix = steps_to<16>(y, n);
    if (prefix < 0) return sums_vectors<false, false>(n, sums, x, y);
    for (int i = 0; i < prefix; ++i) sums.add(x[i], y[i]);
    n -= prefix, x += prefix, y += prefix;
    return is_aligned16(x) ? sums_vectors<true, true>(n, sums, x, y)
                           : sums_vectors<false, true>(n, sums, x, y);
}

template <bool Conjugate>
cfloat dot(int n, const cfloat* x, int incx, const cfloat* y, int incy) {
    if (is_unit_pair(incx, incy)) return sums_single(n, x, y).template value<Conjugate, cfloat>();
    return sums_strided(n, x, incx, y, incy).template value<Conjugate, cfloat>();
}

template <bool Conjugate>
cdouble dot(int n, const cdouble* x, int incx, const cdouble* y, int incy) {
    if (is_unit_pair(incx, incy))
        return sums_extended<4>(n, x, 1, y, 1).template value<Conjugate, cdouble>();
    return sums_strided(n, x, incx, y, incy).template value<Conjugate, cdouble>();
}

} // namespace

#define CDOT(name, NAME, T, conjugate)                                                             \
    VOR_ENGINE void vor_blas_##name PARAMS_CDOT(T) {                                               \
        *result = dot<conjugate>(*n, x, *incx, y, *incy);                                          \
    }                                                                                              \
    VOR_ENTRY(void, name, NAME, vor_blas_##name, PARAMS_CDOT(T), ARGS_CDOT)
CDOT(cdotu, CDOTU, vor::cfloat, false)
CDOT(cdotc, CDOTC, vor::cfloat, true)
CDOT(zdotu, ZDOTU, vor::cdouble, false)
CDOT(zdotc, ZDOTC, vor::cdouble, true)
