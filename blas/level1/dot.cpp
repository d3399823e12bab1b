// dot: the inner product, sum of x[i]*y[i]; 0 with n < 1.
//
// ddot    four partial sums in extended precision, rounded to double at the end
// sdot    up to 8 elements, and steps that are not a pair of 1 or -1: the same, but handed back
//         unrounded; else in single precision throughout, in two vectors of partial sums
// dsdot   products and sum in extended precision, in the order of the elements
// sdsdot  the same on top of sb, rounded to float at the end; sb itself with n < 1
//
// The number of partial sums and the order in which they are added fix every bit of the result.
#include "blas/kernel/dot_lanes.h"
#include "blas/level1/entry.h"
#include "blas/level1/vector.h"

namespace vor::blas {
namespace {

// Partial sum k takes the elements k mod 4. Group elements a round; what is left of the last round is
// added to the total one by one. ahead(x, y) runs once in two rounds.
template <int Group, class T, class Ahead>
[[gnu::always_inline]] inline extended dot_extended(int n, const T* x, int incx, const T* y,
                                                    int incy, Ahead ahead) {
    extended a0 = 0, a1 = 0, a2 = 0, a3 = 0;
    const auto next = [&] {
        const extended product = widen(*x) * *y;
        x += incx;
        y += incy;
        return product;
    };
    const auto add = [&](int count) __attribute__((always_inline)) {
#pragma GCC unroll 4
        for (int k = 0; k < count; k += 4) {
            a0 += next();
            a1 += next();
            a2 += next();
            a3 += next();
        }
    };
    for (; n >= 2 * Group; n -= 2 * Group) {
        ahead(x, y);
        add(2 * Group);
    }
    if (n >= Group) {
        add(Group);
        n -= Group;
    }
    extended sum = ((a3 + a0) + a1) + a2;
    for (; n > 0; --n) sum += next();
    return sum;
}

template <class T>
extended dot_strided(int n, const T* x, int incx, const T* y, int incy) {
    return dot_extended<4>(n, walk_start(x, n, incx), incx, walk_start(y, n, incy), incy,
                           [=](const T* px, const T* py) {
                               prefetch(px + 8 * incx);
                               prefetch(py + 8 * incy);
                           });
}

double dot(int n, const double* x, int incx, const double* y, int incy) {
    if (incx != incy || (incx != 1 && incx != -1))
        return static_cast<double>(dot_strided(n, x, incx, y, incy));
    return static_cast<double>(
        dot_extended<4>(n, x, 1, y, 1, [](const double* px, const double* py) {
            prefetch(px, 128);
            prefetch(py, 128);
        }));
}

// Unit steps, single precision throughout, y aligned after `prefix` elements.
float dot_single(int n, int prefix, const float* x, const float* y) {
    float start = 0;
    for (int i = 0; i < prefix; ++i) start += x[i] * y[i];
    n -= prefix, x += prefix, y += prefix;
    return aligned(x) ? dot_vectors<true>(n, start, x, y) : dot_vectors<false>(n, start, x, y);
}

extended dot_one_sided(int n, const float* x, int incx, const float* y, int incy) {
    const bool unit_x = incx == 1;
    return dot_extended<8>(
        n, walk_start(x, n, incx), incx, walk_start(y, n, incy), incy,
        [=](const float* px, const float* py) { prefetch(unit_x ? px : py, 96); });
}

extended dot(int n, const float* x, int incx, const float* y, int incy) {
    constexpr int kLongestGeneral = 8;
    if (n <= kLongestGeneral) return dot_strided(n, x, incx, y, incy);
    turn_unit_step_forward(incx, incy);
    const int prefix = steps_to<16>(y, n);
    if (incx == 1 && incy == 1 && prefix >= 0) return dot_single(n, prefix, x, y);
    if (incx == 1 || incy == 1) return dot_one_sided(n, x, incx, y, incy);
    return dot_strided(n, x, incx, y, incy);
}

extended dot_in_order(int n, extended sum, const float* x, int incx, const float* y, int incy) {
    x = walk_start(x, n, incx);
    y = walk_start(y, n, incy);
    for (; n > 0; --n, x += incx, y += incy) sum += widen(*x) * *y;
    return sum;
}

} // namespace

VOR_ENGINE long double vor_blas_sdot PARAMS_DOT(float) {
    return dot(*n, x, *incx, y, *incy);
}
VOR_EXTENDED_ENTRY(float, sdot, SDOT, vor_blas_sdot, PARAMS_DOT(float), ARGS_DOT)

LEVEL1(double, ddot, DDOT, vor_blas_ddot, PARAMS_DOT(double), ARGS_DOT,
       return dot(*n, x, *incx, y, *incy))
LEVEL1(double, dsdot, DSDOT, vor_blas_dsdot, PARAMS_DOT(float), ARGS_DOT,
       return static_cast<double>(dot_in_order(*n, 0, x, *incx, y, *incy)))
LEVEL1(float, sdsdot, SDSDOT, vor_blas_sdsdot, PARAMS_SDSDOT, ARGS_SDSDOT,
       return static_cast<float>(dot_in_order(*n, *sb, x, *incx, y, *incy)))

} // namespace vor::blas
