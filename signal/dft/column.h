// One column of a complex stage or leaf: f elements with a stride, twiddles, a transform of length f.
#pragma once

#include "signal/dft/radix.h"

namespace vor::dft {

// x[0], x[in], x[2 in], ... to y[0], y[out], y[2 out], ...; with kTwiddled element m from 1 on is
// first multiplied by w[m - 1].
template <int F, Direction D, bool kTwiddled, Complex C>
VOR_INLINE inline void column(const C* x, C* y, int in, int out, const C* w) {
    C a[F];
    a[0] = x[0];
#pragma GCC unroll 4
    for (int m = 1; m < F; ++m) a[m] = kTwiddled ? twiddled<D>(x[m * in], w[m - 1]) : x[m * in];
    butterfly<F, D>(a);
#pragma GCC unroll 5
    for (int m = 0; m < F; ++m) y[m * out] = a[m];
}

// The same for a radix with a table, whose twiddles include the unit entry.
template <Direction D, bool kTwiddled, class T, Complex C = complex_t<T>>
VOR_INLINE inline void column(TableRadix<T> radix, const C* x, C* y, int in, int out, const C* w) {
    const auto operand = [&](int m) VOR_INLINE {
        return kTwiddled ? twiddled<D>(x[m * in], w[m]) : x[m * in];
    };
    radix.run(
        x[0], [&](int m) VOR_INLINE { return make_pair(operand(m), operand(radix.f - m)); },
        [&](C y0) VOR_INLINE { y[0] = y0; },
        [&](int k, Sums<C> t) VOR_INLINE { place<D>(t, y[k * out], y[(radix.f - k) * out]); });
}

} // namespace vor::dft
