// Recombination of even real lengths N = 2h: between the transform z of the h complex numbers
// (x[2m], x[2m+1]) and the conjugate-even spectrum X of the N reals x, with W = exp(-2 pi i / N):
//
//     forward        X[k] = (z[k] + conj z[h-k]) / 2 - i W^k (z[k] - conj z[h-k]) / 2
//     backward     2 z[k] = X[k] + conj X[h-k] + i W^(-k) (X[k] - conj X[h-k])
//
// Pairs k, h-k go from both ends inward, so that the result may stand where the source does. Element 0,
// which holds X[0] or X[0] and X[h], is the caller's: formats differ in it.
//
// Single precision takes four k at a time. Each lane has the operations of a lone pair, hence its bits.
#pragma once

#include "signal/direction.h"
#include "signal/kernel/lanes.h"

namespace vor::signal {

// Entry k, 1 <= k < h/2, of the table:
//   halves   (re W^k / 2, (1 + im W^k) / 2); the backward result is z
//   whole    W^k, backward only; the result is 2 z
enum class Roots { halves, whole };

// p = z[k] and q = z[h-k], or those of X, to their places; w is entry k.
template <Direction D, Roots kRoots, Parted C>
[[gnu::always_inline]] inline void join(C& p, C& q, C w) {
    const auto d = p.re - q.re, e = p.im + q.im;
    if constexpr (kRoots == Roots::halves) {
        constexpr bool kForward = D == Direction::forward;
        const auto bd = w.im * d, ae = w.re * e, be = w.im * e, ad = w.re * d;
        const auto u = kForward ? bd + ae : bd - ae, v = kForward ? be - ad : be + ad;
        const C mirror = {p.re - u, v - p.im};
        p = {q.re + u, v - q.im};
        q = mirror;
    } else {
        static_assert(D == Direction::backward);
        const auto u = w.im * d - w.re * e, v = w.re * d + w.im * e;
        const auto re = p.re + q.re, im = p.im - q.im;
        p = {re + u, im + v};
        q = {re - u, v - im};
    }
}

// The pairs of four k at once: `Rise` says where elements k on stand, `Fall` the same for h-k.
template <Direction D, Roots kRoots, class Rise, class Fall>
inline void join_four(const cfloat* x, cfloat* z, int h, int k, const cfloat* table) {
    Four p = Rise::load(x + k), q = Fall::load(x + h - k);
    join<D, kRoots>(p, q, Neighbours::load(table + k));
    Rise::store(z + k, p);
    Fall::store(z + h - k, q);
}

// All elements of x but x[0], to z. Entry 0 of the table may be read and is not used.
template <Direction D, Roots kRoots, Parted C>
inline void recombine(const C* x, C* z, int h, const C* table) {
    int k = 1;
    if constexpr (std::is_same_v<C, cfloat>) {
        constexpr int kLeast = 8; // pairs 1 to 3 do not meet
        if (h >= kLeast) {
            join_four<D, kRoots, NeighboursBut0, FallingBut0>(x, z, h, 0, table);
            for (k = 4; 2 * (k + 3) < h; k += 4)
                join_four<D, kRoots, Neighbours, Falling>(x, z, h, k, table);
        }
    }
    for (; 2 * k < h; ++k) {
        C p = x[k], q = x[h - k];
        join<D, kRoots>(p, q, table[k]);
        z[k] = p;
        z[h - k] = q;
    }
    if (h % 2 != 0) return;
    const C middle = x[h / 2];
    z[h / 2] =
        kRoots == Roots::halves ? C{middle.re, -middle.im} : C{2 * middle.re, -2 * middle.im};
}

} // namespace vor::signal
