// rot: the plane rotation (x, y) := (c*x + s*y, c*y - s*x), element by element, real c and s.
//
// c and s are not tested. With n < 1 nothing is read or written. Single precision rounds after each
// operation in every loop; double precision rounds once at each store. Complex vectors with unit
// steps rotate as twice as many real elements.
#include "blas/kernel/rot_lanes.h"
#include "blas/level1/entry.h"
#include "blas/level1/vector.h"

namespace vor::blas {
namespace {

template <class T, class R>
void rot_strided(int n, T* x, int incx, T* y, int incy, R c_, R s_) {
    const work_real_t<R> c = c_, s = s_;
    x = walk_start(x, n, incx);
    y = walk_start(y, n, incy);
    for (; n > 0; --n, x += incx, y += incy) rotate(c, s, *x, *y);
}

void rot_unit(int n, double* x, double* y, double c, double s) {
    rot_strided(n, x, 1, y, 1, c, s);
}

void rot_unit(int n, float* x, float* y, float c, float s) {
    constexpr int kLongestScalar = 10;
    const int prefix = steps_to<16>(x, n);
    if (n <= kLongestScalar || prefix < 0) return rot_strided(n, x, 1, y, 1, c, s);
    rot_strided(prefix, x, 1, y, 1, c, s);
    n -= prefix, x += prefix, y += prefix;
    const int done =
        aligned(y) ? rot_vectors<true>(n, x, y, c, s) : rot_vectors<false>(n, x, y, c, s);
    rot_strided(n - done, x + done, 1, y + done, 1, c, s);
}

template <class T, class R>
void rot_unit(int n, T* x, T* y, R c, R s) {
    rot_unit(2 * n, &x->re, &y->re, c, s);
}

template <class T, class R>
void rot(int n, T* x, int incx, T* y, int incy, R c, R s) {
    if (incx == 1 && incy == 1) return rot_unit(n, x, y, c, s);
    rot_strided(n, x, incx, y, incy, c, s);
}

} // namespace

#define ROT(name, NAME, engine, T, R)                                                              \
    LEVEL1(void, name, NAME, engine, PARAMS_ROT(T, R), ARGS_ROT,                                   \
           rot(*n, x, *incx, y, *incy, *c, *s))
ROT(srot, SROT, vor_blas_srot, float, float)
ROT(drot, DROT, vor_blas_drot, double, double)
ROT(csrot, CSROT, vor_blas_csrot, cfloat, float)
ROT(zdrot, ZDROT, vor_blas_zdrot, cdouble, double)

} // namespace vor::blas
