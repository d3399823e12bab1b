// axpy: y := alpha*x + y.
//
// alpha = 0 of either sign (complex: both parts) or n < 1: y stays as it is, x is not read.
// The extended-precision loops round once for each element, the vector loops after each operation.
#include "blas/level1/engines.h"
#include "blas/level1/vector.h"
#include "serv/entry.h"
#include "vor_blas.h"

namespace {

using namespace vor;

template <class T, class A>
void axpy_strided(int n, A alpha, const T* x, int incx, T* y, int incy) {
    x = walk_start(x, n, incx);
    y = walk_start(y, n, incy);
    in_rounds<4>(
        n, [&] { prefetch(x + 4 * incx); },
        [&] {
            add_product(alpha, *x, *y);
            x += incx;
            y += incy;
        });
}

// Unit steps; Group elements a round, x fetched Ahead bytes before it is used.
template <int Group, int Ahead, class T, class A>
void axpy_extended(int n, A alpha, const T* x, T* y) {
    in_rounds<Group>(
        n, [&] { prefetch(x, Ahead); }, [&] { add_product(alpha, *x++, *y++); });
}

void axpy(int n, double alpha, const double* x, int incx, double* y, int incy) {
    if (incx == 1 && incy == 1) return axpy_extended<4, 64>(n, widen(alpha), x, y);
    axpy_strided(n, widen(alpha), x, incx, y, incy);
}

void axpy(int n, const cdouble& alpha, const cdouble* x, int incx, cdouble* y, int incy) {
    if (incx == 1 && incy == 1) return axpy_extended<2, 32>(n, widen(alpha), x, y);
    axpy_strided(n, widen(alpha), x, incx, y, incy);
}

// y is aligned, x as well if AlignedX. Whole rounds only; gives the number of elements done.
template <bool AlignedX>
int axpy_vectors(int n, float alpha, const float* x, float* y) {
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

void axpy(int n, float alpha, const float* x, int incx, float* y, int incy) {
    turn_unit_step_forward(incx, incy);
    const int prefix = steps_to<16>(y, n);
    if (incx != 1 || incy != 1 || prefix < 0)
        return axpy_strided(n, widen(alpha), x, incx, y, incy);
    axpy_strided(prefix, widen(alpha), x, 1, y, 1);
    n -= prefix, x += prefix, y += prefix;
    const int done =
        is_aligned16(x) ? axpy_vectors<true>(n, alpha, x, y) : axpy_vectors<false>(n, alpha, x, y);
    axpy_strided(n - done, widen(alpha), x + done, 1, y + done, 1);
}

// Two complex numbers in a vector: alpha.re*(re, im) + alpha.im*(-im, re).
template <bool AlignedX, bool AlignedY>
int axpy_vectors(int n, const cfloat& alpha, const cfloat* x, cfloat* y) {
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

int axpy_vectors(int n, const cfloat& alpha, const cfloat* x, cfloat* y) {
    if (!is_aligned16(y)) return axpy_vectors<false, false>(n, alpha, x, y);
    return is_aligned16(x) ? axpy_vectors<true, true>(n, alpha, x, y)
                           : axpy_vectors<false, true>(n, alpha, x, y);
}

void axpy(int n, const cfloat& alpha, const cfloat* x, int incx, cfloat* y, int incy) {
    if (incx != incy || (incx != 1 && incx != -1))
        return axpy_strided(n, widen(alpha), x, incx, y, incy);
    const int steps = steps_to<16>(y, n);
    const int prefix = steps < 0 ? 0 : steps;
    axpy_extended<4, 64>(prefix, widen(alpha), x, y);
    n -= prefix, x += prefix, y += prefix;
    const int done = axpy_vectors(n, alpha, x, y);
    axpy_extended<4, 64>(n - done, widen(alpha), x + done, y + done);
}

} // namespace

#define AXPY(p, P, T)                                                                              \
    VOR_ENGINE void vor_blas_##p##axpy PARAMS_AXPY(T) {                                            \
        if (*n > 0 && !is_zero(*alpha)) axpy(*n, *alpha, x, *incx, y, *incy);                      \
    }                                                                                              \
    VOR_ENTRY(void, p##axpy, P##AXPY, vor_blas_##p##axpy, PARAMS_AXPY(T), ARGS_AXPY)
AXPY(s, S, float)
AXPY(d, D, double)
AXPY(c, C, vor::cfloat)
AXPY(z, Z, vor::cdouble)
