// rotm: the modified plane rotation (x, y) := H (x, y), element by element.
//
// param[0] is the flag, param[1..4] are H11, H21, H12, H22; of them only those count that the flag
// does not imply: -1 the full matrix, 0 a unit diagonal, 1 an antidiagonal of (1, -1), -2 the identity.
// With n < 1 or flag -2 nothing is read or written.
#include "blas/level1/entry.h"
#include "blas/level1/vector.h"

namespace vor::blas {
namespace {

// apply(x, y) replaces one pair.
template <class T, class Apply>
inline void each_pair(int n, T* x, int incx, T* y, int incy, Apply apply) {
    using W = work_real_t<T>;
    x = walk_start(x, n, incx);
    y = walk_start(y, n, incy);
    in_rounds<2>(
        n, [] {},
        [&] {
            W xi = *x, yi = *y;
            apply(xi, yi);
            *x = static_cast<T>(xi);
            *y = static_cast<T>(yi);
            x += incx;
            y += incy;
        });
}

template <class T>
void rotm(int n, T* x, int incx, T* y, int incy, const T* param) {
    using W = work_real_t<T>;
    const T flag = param[0];
    if (n < 1 || flag + 2 == 0) return;
    const W h11 = param[1], h21 = param[2], h12 = param[3], h22 = param[4];
    if (flag > 0)
        each_pair(n, x, incx, y, incy, [=](W& xi, W& yi) {
            const W x0 = xi;
            xi = h11 * x0 + yi;
            yi = h22 * yi - x0;
        });
    else if (flag == 0)
        each_pair(n, x, incx, y, incy, [=](W& xi, W& yi) {
            const W x0 = xi;
            xi = x0 + h12 * yi;
            yi = h21 * x0 + yi;
        });
    else
        each_pair(n, x, incx, y, incy, [=](W& xi, W& yi) {
            const W x0 = xi;
            xi = h11 * x0 + h12 * yi;
            yi = h21 * x0 + h22 * yi;
        });
}

} // namespace

#define ROTM(name, NAME, engine, T)                                                                \
    LEVEL1(void, name, NAME, engine, PARAMS_ROTM(T), ARGS_ROTM, rotm(*n, x, *incx, y, *incy, param))
ROTM(srotm, SROTM, vor_blas_srotm, float)
ROTM(drotm, DROTM, vor_blas_drotm, double)

} // namespace vor::blas
