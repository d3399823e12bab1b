// dotu, dotc: sum of x[i]*y[i], sum of conj(x[i])*y[i], complex; 0 with n < 1.
//
// Four real sums (of re*re, im*im, re*im, im*re) are kept apart and put together at the end, so that
// both routines run the same loops. cdot with equal steps of 1 or -1 works in single precision, two
// complex numbers to a vector; everything else in extended precision, rounded at the end.
#include "blas/kernel/dot_lanes.h"
#include "blas/level1/entry.h"
#include "blas/level1/vector.h"

namespace vor::blas {
namespace {

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

ProductSums<float> sums_single(int n, const cfloat* x, const cfloat* y) {
    ProductSums<float> sums;
    const int prefix = steps_to<16>(y, n);
    if (prefix < 0) return sums_vectors<false, false>(n, sums, x, y);
    for (int i = 0; i < prefix; ++i) sums.add(x[i], y[i]);
    n -= prefix, x += prefix, y += prefix;
    return aligned(x) ? sums_vectors<true, true>(n, sums, x, y)
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

#define CDOT(name, NAME, engine, T, conjugate)                                                     \
    LEVEL1(void, name, NAME, engine, PARAMS_CDOT(T), ARGS_CDOT,                                    \
           *result = dot<conjugate>(*n, x, *incx, y, *incy))
CDOT(cdotu, CDOTU, vor_blas_cdotu, cfloat, false)
CDOT(cdotc, CDOTC, vor_blas_cdotc, cfloat, true)
CDOT(zdotu, ZDOTU, vor_blas_zdotu, cdouble, false)
CDOT(zdotc, ZDOTC, vor_blas_zdotc, cdouble, true)

} // namespace vor::blas
