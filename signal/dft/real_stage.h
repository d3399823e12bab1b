// Real stages of odd radix f and odd length r, on half-complex data.
//
// Forward: f half-complex sub-blocks of length r become one of length f r. With W = exp(-2 pi i/(f r))
// and z the transform of length f of a_m = X_m[j] W^(j m),
//
//     X[j + k r] = z_k,   X[k r - j] = conj(z_(f-k)),   k = 1 to (f-1)/2,   X[j] = z_0
//
// for j = 1 to (r-1)/2; column 0 is a real transform of the f real sums. The inverse mirrors this:
// it gathers z, transforms it with the opposite sign and multiplies by conj(W^(j m)), so that
// sub-block m holds the spectrum of every f-th value from value m on. Source and destination do not
// overlap.
//
// Single precision takes neighbouring columns in fours, each group through all blocks; short blocks have
// one column of four blocks taken together.
#pragma once

#include "signal/dft/kernel/lanes.h"

namespace vor::dft {

// Entry q from 1 on is the pair (re X[q], im X[q]) of the half-complex data at x.
template <class T>
const complex_t<T>* pairs_of(const T* x) {
    return reinterpret_cast<const complex_t<T>*>(x - 1);
}
template <class T>
complex_t<T>* pairs_of(T* x) {
    return reinterpret_cast<complex_t<T>*>(x - 1);
}

// Column j from 1 on. load(m) gives X_m[j], w(m) its twiddle; rise(k, X) takes X[k r + j],
// fall(k, X) takes X[k r - j].
template <Parted C, class Radix, class Load, class Rise, class Fall, class Twiddle>
VOR_INLINE inline void combine_column(Radix radix, Load load, Rise rise, Fall fall,
                                      const Twiddle& w) {
    const int f = radix.size();
    const auto operand = [&](int m) VOR_INLINE -> C { return load(m) * w(m); };
    radix.run(
        load(0), [&](int m) VOR_INLINE { return make_pair<C>(operand(m), operand(f - m)); },
        [&](C y0) VOR_INLINE { rise(0, y0); },
        [&](int k, Sums<C> t) VOR_INLINE {
            C y, mirror;
            place<Direction::forward>(t, y, mirror);
            rise(k, y);
            fall(k, conj(mirror));
        });
}

// The mirror: rise(k) gives X[k r + j], fall(k) X[k r - j], store(m, X) takes X_m[j].
template <Parted C, class Radix, class Rise, class Fall, class Store, class Twiddle>
VOR_INLINE inline void split_column(Radix radix, Rise rise, Fall fall, Store store,
                                    const Twiddle& w) {
    const int f = radix.size();
    radix.run(
        rise(0), [&](int k) VOR_INLINE { return make_pair<C>(rise(k), conj(fall(k))); },
        [&](C y0) VOR_INLINE { store(0, y0); },
        [&](int m, Sums<C> t) VOR_INLINE {
            constexpr auto D = Direction::backward;
            C z, mirror;
            place<D>(t, z, mirror);
            store(m, twiddled<D>(z, w(m)));
            store(f - m, twiddled<D>(mirror, w(f - m)));
        });
}

// Column j, or with E four complex values columns j to j + 3: `low` and `high` load and store them at
// the rising and at the falling places.
template <Direction D, Parted E, class Radix, class T, class Low, class High, class Twiddle>
VOR_INLINE inline void real_column(Radix radix, const T* x, T* y, int r, int j, Low low, High high,
                                   const Twiddle& w) {
    if constexpr (D == Direction::forward) {
        auto* const out = pairs_of(y);
        combine_column<E>(
            radix, [&](int m) VOR_INLINE { return low.load(pairs_of(x + m * r) + j); },
            [&](int k, E a) VOR_INLINE { low.store(out + k * r + j, a); },
            [&](int k, E a) VOR_INLINE { high.store(out + k * r - j, a); }, w);
    } else {
        const auto* const in = pairs_of(x);
        split_column<E>(
            radix, [&](int k) VOR_INLINE { return low.load(in + k * r + j); },
            [&](int k) VOR_INLINE { return high.load(in + k * r - j); },
            [&](int m, E a) VOR_INLINE { low.store(pairs_of(y + m * r) + j, a); }, w);
    }
}

template <Direction D, class Radix, class T>
VOR_INLINE inline void real_column_0(Radix radix, const T* x, T* y, int r) {
    const int f = radix.size();
    if constexpr (D == Direction::forward) {
        auto* const out = pairs_of(y);
        radix.run(
            x[0], [&](int m) VOR_INLINE { return make_pair(x[m * r], x[(f - m) * r]); },
            [&](T y0) VOR_INLINE { y[0] = y0; },
            [&](int k, Sums<T> t) VOR_INLINE {
                out[k * r] = {t.a, t.b};
            });
    } else {
        const auto* const in = pairs_of(x);
        radix.run(
            x[0],
            [&](int k) VOR_INLINE {
                return Pair<T>{2 * in[k * r].re, 2 * in[k * r].im};
            },
            [&](T y0) VOR_INLINE { y[0] = y0; },
            [&](int m, Sums<T> t) VOR_INLINE {
                y[m * r] = t.a + t.b;
                y[(f - m) * r] = t.a - t.b;
            });
    }
}

// Columns 1 to (r-1)/2 of all blocks.
template <Direction D, class Radix, class T>
VOR_INLINE inline void other_real_columns(Radix radix, const T* x, T* y, int r, int blocks,
                                          const complex_t<T>* twiddle) {
    using C = complex_t<T>;
    const int length = radix.size() * r;
    for (int b = 0; b < blocks; ++b, x += length, y += length)
        for (int j = 1; j <= (r - 1) / 2; ++j) {
            const C* const w = twiddle + j * radix.step();
            real_column<D, C>(radix, x, y, r, j, Lone{}, Lone{},
                              [&](int m) VOR_INLINE { return radix.at(w, m); });
        }
}

// Where the group of four from `first` on starts: the last one overlaps the one before it, if need be.
inline int group_start(int first, int count) {
    return first + kLanes <= count ? first : count - kLanes;
}

template <Direction D, class Radix>
VOR_INLINE inline void other_real_columns(Radix radix, const float* x, float* y, int r, int blocks,
                                          const cfloat* twiddle) {
    const Wide<Radix> wide(radix);
    const int count = (r - 1) / 2, step = radix.step(), length = radix.size() * r;
    if (!wide.fits() || (count < kLanes && blocks < kLanes))
        return other_real_columns<D, Radix, float>(radix, x, y, r, blocks, twiddle);
    if (count < kLanes) {
        const RealBlocks lanes{length};
        for (int j = 1; j <= count; ++j) {
            const auto w = wide.kept(Same{}, twiddle + j * step);
            for (int first = 0; first < blocks; first += kLanes) {
                const int at = group_start(first, blocks) * length;
                real_column<D, Four>(wide.radix, x + at, y + at, r, j, lanes, lanes, w);
            }
        }
        return;
    }
    for (int first = 0; first < count; first += kLanes) {
        const int j = 1 + group_start(first, count);
        const auto w = wide.kept(strided(step), twiddle + j * step);
        for (int b = 0; b < blocks; ++b)
            real_column<D, Four>(wide.radix, x + b * length, y + b * length, r, j, Neighbours{},
                                 Falling{}, w);
    }
}

template <Direction D, class Radix, class T>
VOR_KERNEL void real_stage(Radix radix, const T* x, T* y, int r, int blocks,
                           const complex_t<T>* twiddle) {
    const int length = radix.size() * r;
    for (int b = 0; b < blocks; ++b) real_column_0<D>(radix, x + b * length, y + b * length, r);
    other_real_columns<D>(radix, x, y, r, blocks, twiddle);
}

} // namespace vor::dft
