// scal: x := alpha*x. The sign of the step does not matter; a step of 0 scales x[0] n times.
//
// alpha is not tested: 0 times NaN stays NaN, and alpha = 1 does its work. With n < 1 nothing is read
// or written. A real factor on complex data with unit step scales twice as many real elements.
#include "blas/kernel/scal_lanes.h"
#include "blas/level1/entry.h"
#include "blas/level1/vector.h"

namespace vor::blas {
namespace {

// x := alpha*x, rounded at the store alone if V is extended. A real factor meets both parts of x.
template <class V, class T>
inline void scale(V alpha, T& x) {
    if constexpr (is_complex<T> && !Parted<V>) {
        scale(alpha, x.re);
        scale(alpha, x.im);
    } else {
        x = element<T>(alpha * factor<V>(x));
    }
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
void scal_singly(int n, A alpha, T* x) {
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
            const extended a = loaded(x[k]), b = loaded(x[k + 1]), c = loaded(x[k + 2]),
                           d = loaded(x[k + 3]);
            x[k + 3] = static_cast<double>(factor * d);
            x[k + 2] = static_cast<double>(factor * c);
            x[k + 1] = static_cast<double>(factor * b);
            x[k] = static_cast<double>(factor * a);
        }
    }
    scal_singly(n, factor, x);
}
void scal_unit(int n, const cdouble& alpha, cdouble* x) {
    scal_singly(n, widen(alpha), x);
}

// The product of two floats is exact in extended precision: here both precisions give the same bits.
void scal_unit(int n, float alpha, float* x) {
    const int prefix = steps_to<16>(x, n);
    if (prefix < 0) return scal_singly(n, widen(alpha), x);
    scal_singly(prefix, widen(alpha), x);
    n -= prefix, x += prefix;
    const int done = scal_vectors(n, alpha, x);
    scal_singly(n - done, widen(alpha), x + done);
}

void scal_unit(int n, const cfloat& alpha, cfloat* x) {
    const auto factor = number<lane_t<cfloat>>(alpha);
    const int prefix = steps_to<16>(x, n);
    if (prefix < 0) return scal_singly(n, factor, x);
    scal_singly(prefix, factor, x);
    n -= prefix, x += prefix;
    const int done = scal_vectors(n, alpha, x);
    scal_singly(n - done, factor, x + done);
}

template <class R, class T>
void scal_unit(int n, R alpha, T* x) {
    scal_unit(2 * n, alpha, &x->re);
}

template <class T, class A>
void scal(int n, A alpha, T* x, int incx) {
    if (incx == 1 || incx == -1) return scal_unit(n, alpha, x);
    scal_strided(n, number<lane_t<A>>(alpha), x, incx);
}

} // namespace

#define SCAL(name, NAME, engine, T, A)                                                             \
    LEVEL1(void, name, NAME, engine, PARAMS_SCAL(T, A), ARGS_SCAL, scal(*n, *alpha, x, *incx))
SCAL(sscal, SSCAL, vor_blas_sscal, float, float)
SCAL(dscal, DSCAL, vor_blas_dscal, double, double)
SCAL(cscal, CSCAL, vor_blas_cscal, cfloat, cfloat)
SCAL(zscal, ZSCAL, vor_blas_zscal, cdouble, cdouble)
SCAL(csscal, CSSCAL, vor_blas_csscal, cfloat, float)
SCAL(zdscal, ZDSCAL, vor_blas_zdscal, cdouble, double)

} // namespace vor::blas
