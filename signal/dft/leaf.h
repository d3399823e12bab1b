// In-order complex leaves: the first transforms, read from the input with strides. Block by block,
// for t = 0 to c-1
//
//     y[t r + k] = sum over m of x[offset + t p + m p c] W^(m k),   W = exp(-2 pi i / r)
//
// or with the conjugate in the inverse direction. Source and destination do not overlap.
//
// Single precision takes four transforms at a time, those of one t in four blocks, or with less than
// four blocks those of four t. A last group that is not full repeats its last transform.
#pragma once

#include "signal/dft/kernel/lanes.h"

namespace vor::dft {

template <Direction D, class Radix, Parted C>
VOR_KERNEL void leaf(Radix radix, const C* x, int p, C* y, int c, int blocks, const int* offsets) {
    for (int b = 0; b < blocks; ++b) {
        const C* from = x + offsets[b];
        for (int t = 0; t < c; ++t, from += p, y += radix.size())
            column<D>(radix, from, y, p * c, 1);
    }
}

// `count` groups of transforms, p apart at x, r apart at y.
template <Direction D, class Radix>
void leaf_groups(Radix radix, const cfloat* x, Apart from, int p, int stride, cfloat* y, Apart to,
                 int count) {
    for (; count > 0; --count, x += p, y += radix.size())
        columns<D>(radix, from, x, stride, to, y, 1);
}

template <Direction D, class Radix>
VOR_KERNEL void leaf(Radix radix, const cfloat* x, int p, cfloat* y, int c, int blocks,
                     const int* offsets) {
    const Wide<Radix> wide(radix);
    if (!wide.fits()) return leaf<D, Radix, cfloat>(radix, x, p, y, c, blocks, offsets);
    const int r = radix.size();
    if (blocks >= kLanes) {
        for (int b = 0; b < blocks; b += kLanes) {
            const int last = blocks - b - 1;
            const auto source = [&](int k) VOR_INLINE { return offsets[b + k]; };
            const auto result = [&](int k) VOR_INLINE { return k * c * r; };
            leaf_groups<D>(wide.radix, x + offsets[b], distances(source, last), p, p * c,
                           y + b * c * r, distances(result, last), c);
        }
        return;
    }
    for (int b = 0; b < blocks; ++b, y += c * r)
        for (int t = 0; t < c; t += kLanes) {
            const int last = c - t - 1;
            const auto source = [&](int k) VOR_INLINE { return k * p; };
            const auto result = [&](int k) VOR_INLINE { return k * r; };
            leaf_groups<D>(wide.radix, x + offsets[b] + t * p, distances(source, last), p, p * c,
                           y + t * r, distances(result, last), 1);
        }
}

} // namespace vor::dft
