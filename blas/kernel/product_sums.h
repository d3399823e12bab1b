// The partial sums of a complex inner product.
#pragma once

#include "arith/number.h"

namespace vor::blas {

// The four real sums of an inner product of complex vectors, kept apart until the end.
template <class W>
struct ProductSums {
    W rr = 0, ii = 0, ri = 0, ir = 0; // of x.re*y.re, x.im*y.im, x.re*y.im, x.im*y.re

    template <class T>
    void add(const T& x, const T& y) {
        accumulate(rr, x.re, y.re);
        accumulate(ii, x.im, y.im);
        accumulate(ri, x.re, y.im);
        accumulate(ir, x.im, y.re);
    }
    // The sum of x*y or, with Conjugate, of conj(x)*y.
    template <bool Conjugate, class T>
    T value() const {
        using R = real_t<T>;
        if constexpr (Conjugate) return {static_cast<R>(rr + ii), static_cast<R>(ri - ir)};
        return {static_cast<R>(rr - ii), static_cast<R>(ri + ir)};
    }
};

} // namespace vor::blas
