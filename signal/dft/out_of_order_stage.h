// Out-of-order complex stages and leaves. All v columns of block b, f v elements at b f v, share one
// set of twiddles w_m, those of the block's digit-reversed index:
//
//     forward:  a_m = w_m x[m v + j],   y = transform of length f of a
//     inverse:  y_m = conj(w_m) times element m of the inverse transform of length f of x
//
// Each stage works at the places it reads, so it may run in place, and the inverse undoes the
// forward one, up to a factor f. A leaf has no twiddles and takes the whole array as one block.
//
// Single precision takes neighbouring columns of a block in fours; the columns left over, all of them
// where v is below 4, are taken from four blocks at a time.
#pragma once

#include "signal/dft/kernel/lanes.h"

namespace vor::dft {

template <Direction D>
constexpr Twiddles kSide = D == Direction::forward ? Twiddles::before : Twiddles::after;

template <Direction D, class Radix, Parted C>
VOR_KERNEL void out_stage(Radix radix, const C* x, C* y, int v, int first, int blocks,
                          const C* twiddle) {
    const int f = radix.size(), step = radix.step();
    const C* w = twiddle + first * step;
    const C* const end = w + blocks * step;
    x += first * f * v;
    y += first * f * v;
    if (v == 1) {
        for (; w != end; w += step, x += f, y += f) column<D, kSide<D>>(radix, x, y, 1, 1, w);
        return;
    }
    for (; w != end; w += step, x += f * v, y += f * v)
        for (int j = 0; j < v; ++j) column<D, kSide<D>>(radix, x + j, y + j, v, v, w);
}

template <Direction D, class Radix, Parted C>
VOR_KERNEL void out_leaf(Radix radix, const C* x, C* y, int v) {
    for (int j = 0; j < v; ++j) column<D>(radix, x + j, y + j, v, v);
}

// The columns from `grouped` on.
template <Direction D, class Radix>
VOR_INLINE inline void columns_left(const Wide<Radix>& wide, Radix radix, const cfloat* x,
                                    cfloat* y, int grouped, int v, int blocks, const cfloat* w) {
    const int length = radix.size() * v, step = radix.step();
    const Apart lanes = strided(length);
    for (; blocks >= kLanes && wide.fits();
         blocks -= kLanes, w += kLanes * step, x += kLanes * length, y += kLanes * length) {
        const auto group = wide.kept(strided(step), w);
        for (int j = grouped; j < v; ++j)
            columns<D, kSide<D>>(wide.radix, lanes, x + j, v, lanes, y + j, v, group);
    }
    for (; blocks > 0; --blocks, w += step, x += length, y += length)
        for (int j = grouped; j < v; ++j) column<D, kSide<D>>(radix, x + j, y + j, v, v, w);
}

template <Direction D, class Radix>
VOR_KERNEL void out_stage(Radix radix, const cfloat* x, cfloat* y, int v, int first, int blocks,
                          const cfloat* twiddle) {
    const Wide<Radix> wide(radix);
    const int length = radix.size() * v, step = radix.step();
    const int grouped = wide.fits() ? v - v % kLanes : 0;
    const cfloat* w = twiddle + first * step;
    x += first * length;
    y += first * length;
    if (grouped < v) columns_left<D>(wide, radix, x, y, grouped, v, blocks, w);
    if (grouped > 0)
        for (; blocks > 0; --blocks, w += step, x += length, y += length) {
            const auto group = wide.kept(Same{}, w);
            for (int j = 0; j < grouped; j += kLanes)
                columns<D, kSide<D>>(wide.radix, Neighbours{}, x + j, v, Neighbours{}, y + j, v,
                                     group);
        }
}

template <Direction D, class Radix>
VOR_KERNEL void out_leaf(Radix radix, const cfloat* x, cfloat* y, int v) {
    const Wide<Radix> wide(radix);
    int j = 0;
    for (; j + kLanes <= v && wide.fits(); j += kLanes)
        columns<D>(wide.radix, Neighbours{}, x + j, v, Neighbours{}, y + j, v);
    for (; j < v; ++j) column<D>(radix, x + j, y + j, v, v);
}

// The same by a table, block by block; the twiddles of block 0 are all 1.
template <Direction D, class T, Parted C = complex_t<T>>
void out_stages(TableRadix<T> radix, const C* x, C* y, int v, int first, int blocks,
                const C* twiddle) {
    for (int b = first; b < first + blocks; ++b)
        if (b == 0)
            out_leaf<D>(radix, x, y, v);
        else
            out_stage<D>(radix, x, y, v, b, 1, twiddle);
}
template <Direction D, int F, Parted C>
void out_stages(FixedRadix<F> radix, const C* x, C* y, int v, int first, int blocks,
                const C* twiddle) {
    out_stage<D>(radix, x, y, v, first, blocks, twiddle);
}

} // namespace vor::dft
