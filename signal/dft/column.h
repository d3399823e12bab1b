// One column of a complex stage or leaf: f elements with a stride, a transform of length f, twiddles
// before it, after it, or not at all.
#pragma once

#include "signal/dft/radix.h"

namespace vor::dft {

enum class Twiddles { none, before, after };

// x[0], x[in], x[2 in], ... to y[0], y[out], y[2 out], ...; w: the twiddles of the column, element 0
// has none.
template <Direction D, Twiddles kTwiddles, class Radix, Complex C>
VOR_INLINE inline void column(Radix radix, const C* x, C* y, int in, int out, const C* w) {
    transform<D, C>(
        radix,
        [&](int m) VOR_INLINE {
            const C a = x[m * in];
            return kTwiddles == Twiddles::before && m != 0 ? twiddled<D>(a, radix.at(w, m)) : a;
        },
        [&](int m, C a) VOR_INLINE {
            y[m * out] =
                kTwiddles == Twiddles::after && m != 0 ? twiddled<D>(a, radix.at(w, m)) : a;
        });
}

// The same without twiddles.
template <Direction D, class Radix, Complex C>
VOR_INLINE inline void column(Radix radix, const C* x, C* y, int in, int out) {
    column<D, Twiddles::none>(radix, x, y, in, out, static_cast<const C*>(nullptr));
}

} // namespace vor::dft
