// One column of a complex stage or leaf: f elements with a stride, a transform of length f, twiddles
// before it, after it, or not at all.
#pragma once

#include "signal/dft/radix.h"

namespace vor::dft {

enum class Twiddles { none, before, after };

// Element 0 has no twiddle.
template <Direction D, Parted C, class Twiddle>
VOR_INLINE inline C with_twiddle(C a, int m, const Twiddle& w) {
    return m == 0 ? a : twiddled<D>(a, w(m));
}

// from(m) gives element m, to(m, y) takes result m, w(m) is twiddle m and not called without need.
template <Direction D, Twiddles kTwiddles, Parted C, class Radix, class From, class To,
          class Twiddle>
VOR_INLINE inline void column_between(Radix radix, From from, To to, const Twiddle& w) {
    transform<D, C>(
        radix,
        [&](int m) VOR_INLINE {
            if constexpr (kTwiddles == Twiddles::before)
                return with_twiddle<D, C>(from(m), m, w);
            else
                return from(m);
        },
        [&](int m, C a) VOR_INLINE {
            if constexpr (kTwiddles == Twiddles::after)
                to(m, with_twiddle<D, C>(a, m, w));
            else
                to(m, a);
        });
}

// x[0], x[in], x[2 in], ... to y[0], y[out], y[2 out], ...; w: the twiddles of the column.
template <Direction D, Twiddles kTwiddles, class Radix, Parted C>
VOR_INLINE inline void column(Radix radix, const C* x, C* y, int in, int out, const C* w) {
    column_between<D, kTwiddles, C>(
        radix, [&](int m) VOR_INLINE { return x[m * in]; },
        [&](int m, C a) VOR_INLINE { y[m * out] = a; },
        [&](int m) VOR_INLINE { return radix.at(w, m); });
}

// The same without twiddles.
template <Direction D, class Radix, Parted C>
VOR_INLINE inline void column(Radix radix, const C* x, C* y, int in, int out) {
    column<D, Twiddles::none>(radix, x, y, in, out, static_cast<const C*>(nullptr));
}

} // namespace vor::dft
