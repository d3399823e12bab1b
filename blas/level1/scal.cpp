// scal: x := alpha*x. The sign of the step does not matter; a step of 0 scales x[0] n times.
//
// alpha is not tested: 0 times NaN stays NaN, and alpha = 1 does its work. With n < 1 nothing is read
// or written. A real factor on complex data with unit step scales twice as many real elements.
#include "blas/level1/engines.h"
#include "blas/level1/vector.h"
#include "serv/entry.h"
#include "vor_blas.h"

namespace {

using namespace vor;

// x := alpha*x in extended precision, rounded once at the store.
template <class T>
inline void scale(extended alpha, T& x) {
    if constexpr (is_complex<T>) {
        scale(alpha, x.re);
        scale(alpha, x.im);
    } else {
        x = static_cast<T>(alpha * pushed(x));
    }
}
template <class T>
inline void scale(const cextended& alpha, T& x) {
    const extended re = x.re, im = x.im;
    x.re = static_cast<real_t<T>>(alpha.re * re - alpha.im * im);
    x.im = static_cast<real_t<T>>(alpha.re * im + alpha.im * re);
}

template <class T, class A>
void scal_strided(int n, A alpha, T* x, int incx) {
    x = walk_start(x, n, incx);
    in_rounds<4>(
        n, [&] { prefetch(x + 4 * incx); },
        [&] {
            scale(alpha, *x);
            x += incx;
        });
}

template <class T, class A>
void scal_extended(int n, A alpha, T* x) {
    in_rounds<2>(
        n, [&] { prefetch(x, 32); }, [&] { scale(alpha, *x++); });
}

// Four elements are loaded before the first is stored: stores between the loads keep the stack unit
// from starting a product in each cycle. One prefetch for each cache line.
void scal_unit(int n, double alpha, double* x) {
    const extended factor = alpha;
    for (; n >= 8; n -= 8, x += 8) {
        prefetch(x + 4, 32);
#pragma GCC unroll 2
        for (int k = 0; k < 8; k += 4) {
            const extended a = pushed(x[k]), b = pushed(x[k + 1]), c = pushed(x[k + 2]),
                           d = pushed(x[k + 3]);
            x[k + 3] = static_cast<double>(factor * d);
            x[k + 2] = static_cast<double>(factor * c);
            x[k + 1] = static_cast<double>(factor * b);
            x[k] = static_cast<double>(factor * a);
        }
    }
    scal_extended(n, factor, x);
}
void scal_unit(int n, const cdouble& alpha, cdouble* x) {
    scal_extended(n, widen(alpha), x);
}

template <int Round>
inline int scal_vectors(int i, int n, __m128 factor, float* x) {
    for (; i + Round <= n; i += Round)
#pragma GCC unroll 6
        for (int k = i; k < i + Round; k += 4)
            _mm_store_ps(x + k, _mm_mul_ps(_mm_load_ps(x + k), factor));
    return i;
}

// The product of two floats is exact in extended precision: here both precisions give the same bits.
void scal_unit(int n, float alpha, float* x) {
    const int prefix = steps_to<16>(x, n);
    if (prefix < 0) return scal_extended(n, widen(alpha), x);
    scal_extended(prefix, widen(alpha), x);
    n -= prefix, x += prefix;
    const __m128 factor = _mm_set1_ps(alpha);
    int i = scal_vectors<24>(0, n, factor, x);
    i = scal_vectors<4>(i, n, factor, x);
    scal_extended(n - i, widen(alpha), x + i);
}

// Two complex numbers in a vector: alpha.re*(re, im) + alpha.im*(-im, re).
void scal_unit(int n, const cfloat& alpha, cfloat* x) {
    const int prefix = steps_to<16>(x, n);
    if (prefix < 0) return scal_extended(n, widen(alpha), x);
    scal_extended(prefix, widen(alpha), x);
    n -= prefix, x += prefix;
    const __m128 re = _mm_set1_ps(alpha.re);
    const __m128 im = _mm_set_ps(alpha.im, -alpha.im, alpha.im, -alpha.im);
    int i = 0;
    for (; i + 4 <= n; i += 4)
#pragma GCC unroll 2
        for (int k = i; k < i + 4; k += 2) {
            const __m128 v = _mm_load_ps(&x[k].re);
            _mm_store_ps(&x[k].re, _mm_add_ps(_mm_mul_ps(v, re), _mm_mul_ps(swap_parts(v), im)));
        }
    scal_extended(n - i, widen(alpha), x + i);
}

template <class R, class T>
void scal_unit(int n, R alpha, T* x) {
    scal_unit(2 * n, alpha, &x->re);
}

template <class T, class A>
void scal(int n, A alpha, T* x, int incx) {
    if (incx == 1 || incx == -1) return scal_unit(n, alpha, x);
    scal_strided(n, widen(alpha), x, incx);
}

} // namespace

#define SCAL(p, P, T, A)                                                                           \
    VOR_ENGINE void vor_blas_##p##scal PARAMS_SCAL(T, A) {                                         \
        scal(*n, *alpha, x, *incx);                                                                \
    }                                                                                              \
    VOR_ENTRY(void, p##scal, P##SCAL, vor_blas_##p##scal, PARAMS_SCAL(T, A), ARGS_SCAL)
SCAL(s, S, float, float)
SCAL(d, D, double, double)
SCAL(c, C, vor::cfloat, vor::cfloat)
SCAL(z, Z, vor::cdouble, vor::cdouble)
SCAL(cs, CS, vor::cfloat, float)
SCAL(zd, ZD, vor::cdouble, double)
