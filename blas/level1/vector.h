// What the vector routines share: steps that turn round, single steps in extended precision.
#pragma once

#include "arith/lanes.h"
#include "arith/prefetch.h"
#include "arith/walk.h"
#include "blas/kernel/product_sums.h"

namespace vor::blas {

// Two walks that run backwards together meet the same pairs as the same walks turned round. Turns
// both if a unit step points backwards, so that the unit-step vector is read forwards.
inline void turn_unit_step_forward(int& incx, int& incy) {
    if (incx != -1 && (incy != -1 || incx == 1)) return;
    incx = -incx;
    incy = -incy;
}

// One pair under the plane rotation (c, s).
template <class W, class T>
inline void rotate(W c, W s, T& x, T& y) {
    if constexpr (is_complex<T>) {
        rotate(c, s, x.re, y.re);
        rotate(c, s, x.im, y.im);
    } else {
        const W x0 = x, y0 = y;
        x = static_cast<T>(c * x0 + s * y0);
        y = static_cast<T>(c * y0 - s * x0);
    }
}

// What a single element is calculated in, as a factor A asks: in extended precision, but for complex numbers
// of single precision, which are rounded at every operation as they are in vectors. An element has the
// same bits then wherever it stands.
template <class A>
using lane_t = std::conditional_t<std::is_same_v<A, cfloat>, Complex<float>, wide_t<A>>;

// y := alpha*x + y in extended precision, rounded once at the store.
template <class T>
inline void add_product(extended alpha, const T& x, T& y) {
    y = static_cast<T>(alpha * x + y);
}
template <class T>
inline void add_product(const cextended& alpha, const T& x, T& y) {
    const extended xr = x.re, xi = x.im;
    y.re = static_cast<real_t<T>>(y.re + alpha.re * xr - alpha.im * xi);
    y.im = static_cast<real_t<T>>(y.im + alpha.re * xi + alpha.im * xr);
}
// As a vector does it.
inline void add_product(const Complex<float>& alpha, const cfloat& x, cfloat& y) {
    using V = Complex<float>;
    y = element<cfloat>(alpha * number<V>(x) + number<V>(y));
}

} // namespace vor::blas
