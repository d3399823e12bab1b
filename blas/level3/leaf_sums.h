// The sums of the triangle leaves in extended precision: products of the elements of a tile, side by side,
// with one factor after the other.
#pragma once

#include "arith/x87.h"
#include "blas/level3/triangle_leaf.h"

namespace vor {

template <class T>
using Wide = decltype(widen(T{}));

template <class T>
inline T narrow(const Wide<T>& x) {
    if constexpr (is_complex<T>)
        return {static_cast<real_t<T>>(x.re), static_cast<real_t<T>>(x.im)};
    else
        return static_cast<T>(x);
}

inline extended times(extended x, extended y) {
    return x * y;
}
inline cextended times(const cextended& x, const cextended& y) {
    return {x.re * y.re - x.im * y.im, x.re * y.im + x.im * y.re};
}
inline extended plus(extended x, extended y) {
    return x + y;
}
inline cextended plus(const cextended& x, const cextended& y) {
    return {x.re + y.re, x.im + y.im};
}
inline extended minus(extended x, extended y) {
    return x - y;
}
inline cextended minus(const cextended& x, const cextended& y) {
    return {x.re - y.re, x.im - y.im};
}

// Sums that run side by side, in lanes: four real numbers, as many as hide the latency of an addition
// and fit the x87 stack beside two operands. Two complex elements x fill (re, im, re, im) for the
// products with real parts and (-im, re, -im, re) for those with imaginary parts.
constexpr int kLanes = 4;
template <class T>
constexpr int kParts = is_complex<T> ? 2 : 1;
template <class T>
constexpr int kTile = kLanes / kParts<T>; // elements side by side
template <class T>
constexpr int kSlot =
    kLanes* kParts<T>; // numbers of the elements of a tile that share their other factor

inline void put(float* slot, int g, float x) {
    slot[g] = x;
}
inline void put(double* slot, int g, double x) {
    slot[g] = x;
}
template <class T>
inline void put(real_t<T>* slot, int g, const T& x) {
    slot[2 * g] = slot[kLanes + 2 * g + 1] = x.re;
    slot[2 * g + 1] = x.im;
    slot[kLanes + 2 * g] = -x.im;
}
template <class T>
T get(const real_t<T>* slot, int g) {
    if constexpr (is_complex<T>)
        return {slot[2 * g], slot[2 * g + 1]};
    else
        return slot[g];
}

// Right sides that take turns, so that what an equation waits for has been found a while ago. They are
// worked on in a copy of a page at most, in the order of the walk: in B they may lie a multiple of a page
// apart, where only a few of them stay in the cache.
template <class T>
constexpr int kTurn = kTile<T>* static_cast<int>(4096 /
                                                 (kLeafOrder * kSlot<T> * sizeof(real_t<T>)));

// work(turn, l, element) for all elements of `count` right sides from q on, by neighbours in memory.
template <class T, class F>
void for_elements(const Leaf<T>& leaf, int q, int count, F work) {
    if (leaf.next == 1) {
        for (int l = 0; l < leaf.order; ++l)
            for (int turn = 0; turn < count; ++turn)
                work(turn, l, leaf.side(q + turn)[l * leaf.step]);
    } else {
        for (int turn = 0; turn < count; ++turn)
            for (int l = 0; l < leaf.order; ++l) work(turn, l, leaf.side(q + turn)[l * leaf.step]);
    }
}

// work(x, count) on all right sides, `count` in turn: side t is x[t].
template <class T, class F>
void by_columns(const Leaf<T>& leaf, F work) {
    T x[kTurn<T>][kLeafOrder];
    for (int q = 0; q < leaf.others; q += kTurn<T>) {
        const int count = std::min(kTurn<T>, leaf.others - q);
        for_elements(leaf, q, count, [&](int turn, int l, const T& e) { x[turn][l] = e; });
        work(x, count);
        for_elements(leaf, q, count, [&](int turn, int l, T& e) { e = x[turn][l]; });
    }
}

// The same in slots: those of side t begin at at(t).
template <class T>
struct TurnSlots {
    static constexpr int kTileSize = kLeafOrder * kSlot<T>;
    real_t<T> numbers[kTurn<T> / kTile<T> * kTileSize];

    real_t<T>* at(int turn) {
        return numbers + turn / kTile<T> * kTileSize + turn % kTile<T> * kParts<T>;
    }
};
template <class T, class F>
void by_slots(const Leaf<T>& leaf, F work) {
    TurnSlots<T> x;
    for (int q = 0; q < leaf.others; q += kTurn<T>) {
        const int count = std::min(kTurn<T>, leaf.others - q);
        for_elements(leaf, q, count,
                     [&](int turn, int l, const T& e) { put(x.at(turn) + l * kSlot<T>, 0, e); });
        work(x, count);
        for_elements(leaf, q, count,
                     [&](int turn, int l, T& e) { e = get<T>(x.at(turn) + l * kSlot<T>, 0); });
    }
}

// work(G, turn) for all of `count` right sides: G from `turn` on, a tile or a single one.
template <class T, class F>
void in_tiles(int count, F work) {
    int turn = 0;
    for (; turn + kTile<T> <= count; turn += kTile<T>)
        work(std::integral_constant<int, kTile<T>>{}, turn);
    for (; turn < count; ++turn) work(std::integral_constant<int, 1>{}, turn);
}

// Slots of the coefficients of `count` unknowns from l on in G equations from i on.
template <int G, class T>
void pack_equations(const Leaf<T>& leaf, int i, int l, int count, real_t<T>* slots) {
    for (int k = 0; k < count; ++k, slots += kSlot<T>)
        for (int g = 0; g < G; ++g) put(slots, g, leaf.coefficient(i + g, l + k));
}

// sum[g] += v[l * kLanes + g] * y[l] over ascending l < count.
//
// Each operation stays in its place of the order: left to itself the compiler puts additions off until
// sums have to leave the x87 stack.
template <int N, class R>
[[gnu::always_inline]] inline void add_lanes(extended* sum, int count, const R* v, const R* y) {
    extended s[N];
#pragma GCC unroll 4
    for (int g = 0; g < N; ++g) s[g] = sum[g];
    const auto step = [&](int l) __attribute__((always_inline)) {
        const extended factor = loaded(y[l]);
#pragma GCC unroll 4
        for (int g = 0; g < N; ++g) {
            extended product = loaded(v[l * kLanes + g]) * factor;
            asm volatile("" : "+t"(product));
            s[g] += product;
            asm volatile("" : : "f"(s[g]));
        }
    };
    // Long loops would end in a misprediction.
    for (const R* const end = y + count; y != end; v += kLanes, ++y) step(0);
#pragma GCC unroll 4
    for (int g = 0; g < N; ++g) sum[g] = s[g];
}

// The sums over ascending l < count of slots[l], elements side by side, times y[l].
template <int G, class T>
[[gnu::always_inline]] inline void dots(Wide<T>* sum, int count, const real_t<T>* slots,
                                        const T* y) {
    extended s[G * kParts<T>] = {};
    if constexpr (is_complex<T>) {
        add_lanes<2 * G>(s, 2 * count, slots, &y->re);
#pragma GCC unroll 2
        for (int g = 0; g < G; ++g) sum[g] = {s[2 * g], s[2 * g + 1]};
    } else {
        add_lanes<G>(s, count, slots, y);
#pragma GCC unroll 4
        for (int g = 0; g < G; ++g) sum[g] = s[g];
    }
}

} // namespace vor
