// In-order complex stages: f sub-results of length r, one after the other in a block, become one of
// length f r. For column j of a block
//
//     a_m = x[m r + j] W^(j m),   y = transform of length f of a,   y_m goes to place m r + j
//
// with W = exp(-2 pi i / (f r)), or its conjugate in the inverse direction. Column 0 has no
// twiddles. A column is read before it is written, so a stage may run in place.
//
// Single precision takes neighbouring columns of a block in fours, each group through all blocks with
// its twiddles; column 0 and the columns left over are taken from four blocks at a time.
#pragma once

#include "signal/dft/kernel/lanes.h"

namespace vor::dft {

template <Direction D, class Radix, Parted C>
VOR_KERNEL void stage(Radix radix, const C* x, C* y, int r, int blocks, const C* twiddle) {
    const int length = radix.size() * r;
    for (int b = 0; b < blocks; ++b, x += length, y += length) {
        column<D>(radix, x, y, r, r);
        const C* w = twiddle;
        for (int j = 1; j < r; ++j) {
            w += radix.step();
            column<D, Twiddles::before>(radix, x + j, y + j, r, r, w);
        }
    }
}

// Column j of every block, x and y being its places in the first block.
template <Direction D, Twiddles kTwiddles, class Radix>
VOR_INLINE inline void lone_column(const Wide<Radix>& wide, Radix radix, const cfloat* x, cfloat* y,
                                   int r, int blocks, const cfloat* w) {
    const int length = radix.size() * r;
    int b = 0;
    if (blocks >= kLanes && wide.fits()) {
        const auto twiddle = wide.kept(Same{}, w);
        const Apart lanes = strided(length);
        for (; b + kLanes <= blocks; b += kLanes)
            columns<D, kTwiddles>(wide.radix, lanes, x + b * length, r, lanes, y + b * length, r,
                                  twiddle);
    }
    for (; b < blocks; ++b) column<D, kTwiddles>(radix, x + b * length, y + b * length, r, r, w);
}

template <Direction D, class Radix>
VOR_KERNEL void stage(Radix radix, const cfloat* x, cfloat* y, int r, int blocks,
                      const cfloat* twiddle) {
    const Wide<Radix> wide(radix);
    const int step = radix.step(), length = radix.size() * r;
    lone_column<D, Twiddles::none>(wide, radix, x, y, r, blocks, twiddle);
    int j = 1;
    const cfloat* w = twiddle + step;
    for (; j + kLanes <= r && wide.fits(); j += kLanes, w += kLanes * step) {
        const auto group = [&](int b, const auto& twiddles) VOR_INLINE {
            const int at = b * length + j;
            columns<D, Twiddles::before>(wide.radix, Neighbours{}, x + at, r, Neighbours{}, y + at,
                                         r, twiddles);
        };
        if (blocks == 1) {
            group(0, wide.fetched(strided(step), w));
            continue;
        }
        const auto twiddles = wide.kept(strided(step), w);
        for (int b = 0; b < blocks; ++b) group(b, twiddles);
    }
    for (; j < r; ++j, w += step)
        lone_column<D, Twiddles::before>(wide, radix, x + j, y + j, r, blocks, w);
}

} // namespace vor::dft
