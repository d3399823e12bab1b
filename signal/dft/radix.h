// Transforms of one short length f: the arithmetic that stages, leaves and whole transforms share.
//
// An odd length works on the pairs s_m = a_m + a_(f-m), d_m = a_m - a_(f-m), m = 1 to (f-1)/2:
//
//     y_0 = a_0 + sum of s_m
//     A_k = a_0 + sum of s_m re W^(km),   B_k = sum of d_m im W^(km),   W = exp(-2 pi i / f)
//     y_k = A_k + i B_k,   y_(f-k) = A_k - i B_k
//
// which halves the products. With real a the pair (A_k, B_k) is y_k itself; with s = 2 re X and
// d = 2 im X of a conjugate-even X, A_k + B_k and A_k - B_k are the real values k and f-k.
//
// Fixed radices 2 to 5 are open-coded; larger ones walk a table of the f powers of W.
#pragma once

#include "arith/number.h"
#include "signal/direction.h"

namespace vor::dft {

#define VOR_INLINE __attribute__((always_inline))
// A kernel: compiled once, called by the drivers and by the function that exports its name.
#define VOR_KERNEL [[gnu::noinline, gnu::noclone, gnu::visibility("hidden")]]

// a times w, or times the conjugate of w in the backward direction.
template <Direction D, Parted C>
inline C twiddled(C a, C w) {
    return product<D == Direction::backward>(w, a);
}

template <class E>
struct Pair {
    E s, d;
};

template <class E>
struct Sums {
    E a, b;
};

template <class E>
VOR_INLINE inline Pair<E> make_pair(E x, E y) {
    return {x + y, x - y};
}

// y_k and y_(f-k) of the forward direction; the inverse exchanges them.
template <Direction D, Parted C>
VOR_INLINE inline void place(Sums<C> t, C& y, C& mirror) {
    C& first = D == Direction::forward ? y : mirror;
    C& second = D == Direction::forward ? mirror : y;
    first = {t.a.re - t.b.im, t.a.im + t.b.re};
    second = {t.a.re + t.b.im, t.a.im - t.b.re};
}

// The sums A_k and B_k over `count` pairs. The table index steps by k modulo n.
template <class E>
VOR_INLINE inline Sums<E> symmetric_sum(E start, const Pair<E>* pairs, int count,
                                        const complex_t<E>* table, int n, int k) {
    E a = start + table[k].re * pairs[0].s;
    E b = table[k].im * pairs[0].d;
    for (int m = 1, i = k; m < count; ++m) {
        i += k;
        i -= i >= n ? n : 0;
        a = a + table[i].re * pairs[m].s;
        b = b + table[i].im * pairs[m].d;
    }
    return {a, b};
}

// An odd radix offers run(a_0, pair, first, each): pair(m) gives the pair m, first(y_0) and
// each(k, sums) take the results, k = 1 to (f-1)/2. All pairs are read before the first result is
// handed over, so results may overwrite operands. at(w, m) is twiddle m of a column, step() the
// length of a column in the twiddle table.

template <int F>
struct FixedRadix {
    static constexpr int kFixed = F;
    static constexpr int size() { return F; }
    static constexpr int step() { return F - 1; }
    template <class C>
    static C at(const C* w, int m) {
        return w[m - 1];
    }

    template <class E, class GetPair, class First, class Each>
    VOR_INLINE void run(E a0, GetPair pair, First first, Each each) const {
        static_assert(F == 3 || F == 5);
        using T = real_t<E>;
        if constexpr (F == 3) {
            constexpr T kMinusHalf = -0.5, kSine = static_cast<T>(-0.8660254037844386);
            const Pair<E> p = pair(1);
            first(a0 + p.s);
            each(1, Sums<E>{a0 + kMinusHalf * p.s, kSine * p.d});
        } else {
            constexpr T c1 = static_cast<T>(0.30901699437494745);
            constexpr T c2 = static_cast<T>(-0.8090169943749473);
            constexpr T s1 = static_cast<T>(-0.9510565162951535);
            constexpr T s2 = static_cast<T>(-0.5877852522924732);
            const Pair<E> p = pair(1), q = pair(2);
            first(a0 + p.s + q.s);
            each(1, Sums<E>{a0 + c1 * p.s + c2 * q.s, s1 * p.d + s2 * q.d});
            each(2, Sums<E>{a0 + c2 * p.s + c1 * q.s, s2 * p.d - s1 * q.d});
        }
    }
};

// Any odd radix from 3 on. A column has f twiddles, the unit entry included. `scratch` holds f - 1 complex
// elements.
template <class T>
struct TableRadix {
    static constexpr int kFixed = 0;
    int f;
    const complex_t<T>* table; // W^k, k = 0 to f-1
    void* scratch;

    int size() const { return f; }
    int step() const { return f; }
    static complex_t<T> at(const complex_t<T>* w, int m) { return w[m]; }

    template <class E, class GetPair, class First, class Each>
    VOR_INLINE void run(E a0, GetPair pair, First first, Each each) const {
        auto* pairs = static_cast<Pair<E>*>(scratch);
        const int count = (f - 1) / 2;
        E sum = a0;
        for (int m = 1; m <= count; ++m) {
            pairs[m - 1] = pair(m);
            sum = sum + pairs[m - 1].s;
        }
        first(sum);
        for (int k = 1; k <= count; ++k) each(k, symmetric_sum(a0, pairs, count, table, f, k));
    }
};

// call(radix) with the radix f in a type of its own if it is one of those listed.
template <int... listed, class T, class Call>
VOR_INLINE inline void with_radix(TableRadix<T> table, Call call) {
    if (!((table.f == listed && (call(FixedRadix<listed>{}), true)) || ...)) call(table);
}

// The transform of the operands load(0) to load(f-1); store(k, y) takes each result. All operands are
// read before the first result is stored, so results may overwrite operands.
template <Direction D, Parted C, class Radix, class Load, class Store>
VOR_INLINE inline void transform(Radix radix, Load load, Store store) {
    if constexpr (Radix::kFixed == 1) {
        store(0, load(0));
    } else if constexpr (Radix::kFixed == 2) {
        const Pair<C> p = make_pair<C>(load(0), load(1));
        store(0, p.s);
        store(1, p.d);
    } else if constexpr (Radix::kFixed == 4) {
        const Pair<C> even = make_pair<C>(load(0), load(2)), odd = make_pair<C>(load(1), load(3));
        store(0, even.s + odd.s);
        store(2, even.s - odd.s);
        constexpr int kFirst = D == Direction::forward ? 1 : 3;
        store(kFirst, C{even.d.re + odd.d.im, even.d.im - odd.d.re});
        store(4 - kFirst, C{even.d.re - odd.d.im, even.d.im + odd.d.re});
    } else {
        const int f = radix.size();
        radix.template run<C>(
            load(0), [&](int m) VOR_INLINE { return make_pair<C>(load(m), load(f - m)); },
            [&](C y0) VOR_INLINE { store(0, y0); },
            [&](int k, Sums<C> t) VOR_INLINE {
                C y, mirror;
                place<D>(t, y, mirror);
                store(k, y);
                store(f - k, mirror);
            });
    }
}

} // namespace vor::dft
