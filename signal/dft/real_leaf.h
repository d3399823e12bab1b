// Real leaves of odd length r. Block by block, for t = 0 to c-1: forward, the reals
// x[offset + t p + m p c], m = 0 to r-1, become a half-complex result of r values, one result behind
// the other; inverse, such results become reals at those places. Source and destination do not
// overlap.
//
// Single precision takes the transforms of four t at a time, lengths above 5. A group that is not full
// repeats its last transform.
#pragma once

#include "signal/dft/kernel/lanes.h"

namespace vor::dft {

// One transform, or with E four reals four of them, between `stride` apart at x and side by side at y
// forward, the other way round inverse; `from` loads, `to` stores.
template <Direction D, class E, class Radix, class T, class From, class To>
VOR_INLINE inline void transform_reals(Radix radix, From from, const T* x, To to, T* y,
                                       int stride) {
    const int r = radix.size();
    if constexpr (D == Direction::forward)
        radix.run(
            from.load(x),
            [&](int m) VOR_INLINE {
                return make_pair<E>(from.load(x + m * stride), from.load(x + (r - m) * stride));
            },
            [&](E y0) VOR_INLINE { to.store(y, y0); },
            [&](int k, Sums<E> t) VOR_INLINE {
                to.store(y + 2 * k - 1, t.a);
                to.store(y + 2 * k, t.b);
            });
    else
        radix.run(
            from.load(x),
            [&](int k) VOR_INLINE {
                return Pair<E>{T(2) * from.load(x + 2 * k - 1), T(2) * from.load(x + 2 * k)};
            },
            [&](E y0) VOR_INLINE { to.store(y, y0); },
            [&](int m, Sums<E> t) VOR_INLINE {
                to.store(y + m * stride, t.a + t.b);
                to.store(y + (r - m) * stride, t.a - t.b);
            });
}

template <Direction D, class Radix, class T>
VOR_KERNEL void real_leaf(Radix radix, const T* x, int p, T* y, int c, int blocks,
                          const int* offsets) {
    const int r = radix.size();
    for (int b = 0; b < blocks; ++b)
        for (int t = 0; t < c; ++t) {
            const int strided = offsets[b] + t * p, packed = (b * c + t) * r;
            constexpr bool kForward = D == Direction::forward;
            transform_reals<D, T>(radix, Lone{}, x + (kForward ? strided : packed), Lone{},
                                  y + (kForward ? packed : strided), p * c);
        }
}

// Lengths 3 and 5 have too little arithmetic to pay for gathered operands.
template <Direction D>
VOR_KERNEL void real_leaf(TableRadix<float> radix, const float* x, int p, float* y, int c,
                          int blocks, const int* offsets) {
    using Radix = TableRadix<float>;
    const Wide<Radix> wide(radix);
    if (!wide.fits()) return real_leaf<D, Radix, float>(radix, x, p, y, c, blocks, offsets);
    const int r = radix.size();
    for (int b = 0; b < blocks; ++b)
        for (int t = 0; t < c; t += kLanes) {
            const int first = offsets[b] + t * p, packed = (b * c + t) * r, last = c - t - 1;
            const Apart places = distances([&](int k) VOR_INLINE { return k * p; }, last);
            const Apart results = distances([&](int k) VOR_INLINE { return k * r; }, last);
            if constexpr (D == Direction::forward)
                transform_reals<D, FourReals>(wide.radix, places, x + first, results, y + packed,
                                              p * c);
            else
                transform_reals<D, FourReals>(wide.radix, results, x + packed, places, y + first,
                                              p * c);
        }
}

} // namespace vor::dft
