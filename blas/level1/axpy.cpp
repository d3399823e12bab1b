// axpy: y := alpha*x + y.
//
// alpha = 0 of either sign (complex: both parts) or n < 1: y stays as it is, x is not read.
// Extended-precision loops round once for each element: d, z, and of s what does not fit the vectors. The
// vectors of s and c round after each operation, and so do the single elements of c.
#include "blas/kernel/axpy_lanes.h"
#include "blas/level1/entry.h"
#include "blas/level1/vector.h"

namespace vor::blas {
namespace {

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
void axpy_unit(int n, A alpha, const T* x, T* y) {
    in_rounds<Group>(
        n, [&] { prefetch(x, Ahead); }, [&] { add_product(alpha, *x++, *y++); });
}

void axpy(int n, double alpha, const double* x, int incx, double* y, int incy) {
    if (incx == 1 && incy == 1) return axpy_unit<4, 64>(n, widen(alpha), x, y);
    axpy_strided(n, widen(alpha), x, incx, y, incy);
}

void axpy(int n, const cdouble& alpha, const cdouble* x, int incx, cdouble* y, int incy) {
    if (incx == 1 && incy == 1) return axpy_unit<2, 32>(n, widen(alpha), x, y);
    axpy_strided(n, widen(alpha), x, incx, y, incy);
}

void axpy(int n, float alpha, const float* x, int incx, float* y, int incy) {
    turn_unit_step_forward(incx, incy);
    const int prefix = steps_to<16>(y, n);
    if (incx != 1 || incy != 1 || prefix < 0)
        return axpy_strided(n, widen(alpha), x, incx, y, incy);
    axpy_strided(prefix, widen(alpha), x, 1, y, 1);
    n -= prefix, x += prefix, y += prefix;
    const int done =
        aligned(x) ? axpy_vectors<true>(n, alpha, x, y) : axpy_vectors<false>(n, alpha, x, y);
    axpy_strided(n - done, widen(alpha), x + done, 1, y + done, 1);
}

void axpy(int n, const cfloat& alpha, const cfloat* x, int incx, cfloat* y, int incy) {
    const auto factor = number<lane_t<cfloat>>(alpha);
    if (incx != incy || (incx != 1 && incx != -1)) return axpy_strided(n, factor, x, incx, y, incy);
    const int steps = steps_to<16>(y, n);
    const int prefix = steps < 0 ? 0 : steps;
    axpy_unit<4, 64>(prefix, factor, x, y);
    n -= prefix, x += prefix, y += prefix;
    const int done = axpy_vectors(n, alpha, x, y);
    axpy_unit<4, 64>(n - done, factor, x + done, y + done);
}

} // namespace

#define AXPY(name, NAME, engine, T)                                                                \
    LEVEL1(void, name, NAME, engine, PARAMS_AXPY(T), ARGS_AXPY,                                    \
           if (*n > 0 && !has_zero_bits(*alpha)) axpy(*n, *alpha, x, *incx, y, *incy))
AXPY(saxpy, SAXPY, vor_blas_saxpy, float)
AXPY(daxpy, DAXPY, vor_blas_daxpy, double)
AXPY(caxpy, CAXPY, vor_blas_caxpy, cfloat)
AXPY(zaxpy, ZAXPY, vor_blas_zaxpy, cdouble)

} // namespace vor::blas
