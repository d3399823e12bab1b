// rot: the plane rotation (x, y) := (c*x + s*y, c*y - s*x), element by element, real c and s.
//
// c and s are not tested. With n < 1 nothing is read or written. Single precision rounds after each
// operation in every loop; double precision rounds once at each store. Complex vectors with unit
// steps rotate as twice as many real elements.
#include "blas/level1/engines.h"
#include "blas/level1/vector.h"
#include "serv/entry.h"
#include "vor_blas.h"

namespace {

using namespace vor;

template <class T, class R>
void rot_strided(int n, T* x, int incx, T* y, int incy, R c_, R s_) {
    const arithmetic<R> c = c_, s = s_;
    x = walk_start(x, n, incx);
    y = walk_start(y, n, incy);
    for (; n > 0; --n, x += incx, y += incy) rotate(c, s, *x, *y);
}

void rot_unit(int n, double* x, double* y, double c, double s) {
    rot_strided(n, x, 1, y, 1, c, s);
}

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

void rot_unit(int n, float* x, float* y, float c, float s) {
    constexpr int kLongestScalar = 10;
    const int prefix = steps_to<16>(x, n);
    if (n <= kLongestScalar || prefix < 0) return rot_strided(n, x, 1, y, 1, c, s);
    rot_strided(prefix, x, 1, y, 1, c, s);
    n -= prefix, x += prefix, y += prefix;
    const int done =
        is_aligned16(y) ? rot_vectors<true>(n, x, y, c, s) : rot_vectors<false>(n, x, y, c, s);
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

#define ROT(p, P, T, R)                                                                            \
    VOR_ENGINE void vor_blas_##p##rot PARAMS_ROT(T, R) {                                           \
        rot(*n, x, *incx, y, *incy, *c, *s);                                                       \
    }                                                                                              \
    VOR_ENTRY(void, p##rot, P##ROT, vor_blas_##p##rot, PARAMS_ROT(T, R), ARGS_ROT)
ROT(s, S, float, float)
ROT(d, D, double, double)
ROT(cs, CS, vor::cfloat, float)
ROT(zd, ZD, vor::cdouble, double)
