// The sums of the triangle leaves in extended precision: products of the elements of a tile, side by side,
// with one factor after the other.
#pragma once

#include "arith/number.h"
#include "blas/kernel/triangle_leaf.h"

#include <algorithm>

namespace vor::blas {

// Sums that run side by side: four real numbers, as many as hide the latency of an addition and fit the
// x87 stack beside two operands.
inline constexpr int kLiveSums = 4;

// The slot of a tile: the elements side by side that share their other factor. Two complex elements x
// fill (re, im, re, im) for the products with real parts and (-im, re, -im, re) for those with imaginary
// parts.
template <class T>
struct Slot {
    using Number = real_t<T>;
    static constexpr int kParts = is_complex<T> ? 2 : 1;
    static constexpr int kTile = kLiveSums / kParts; // elements
    static constexpr int kSize = kLiveSums * kParts; // numbers

    static void put(Number* slot, int g, const T& x) {
        if constexpr (is_complex<T>) {
            slot[2 * g] = slot[kLiveSums + 2 * g + 1] = x.re;
            slot[2 * g + 1] = x.im;
            slot[kLiveSums + 2 * g] = -x.im;
        } else {
            slot[g] = x;
        }
    }
    static T get(const Number* slot, int g) {
        if constexpr (is_complex<T>)
            return {slot[2 * g], slot[2 * g + 1]};
        else
            return slot[g];
    }
};

// Right sides that take turns, so that what an equation waits for has been found a while ago. They are
// worked on in a copy of a page at most, in the order of the walk: in B they may lie a multiple of a page
// apart, where only a few of them stay in the cache.
template <class T>
inline constexpr int kSidesInTurn =
    Slot<T>::kTile* static_cast<int>(4096 / (kLeafOrder * Slot<T>::kSize * sizeof(real_t<T>)));

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
void in_turns(const Leaf<T>& leaf, F work) {
    constexpr int kTurn = kSidesInTurn<T>;
    T x[kTurn][kLeafOrder];
    for (int q = 0; q < leaf.others; q += kTurn) {
        const int count = std::min(kTurn, leaf.others - q);
        for_elements(leaf, q, count, [&](int turn, int l, const T& e) { x[turn][l] = e; });
        work(x, count);
        for_elements(leaf, q, count, [&](int turn, int l, T& e) { e = x[turn][l]; });
    }
}

// The same in slots: those of side t begin at at(t).
template <class T>
struct TurnSlots {
    using S = Slot<T>;
    static constexpr int kTileSize = kLeafOrder * S::kSize;
    real_t<T> numbers[kSidesInTurn<T> / S::kTile * kTileSize];

    real_t<T>* at(int turn) {
        return numbers + turn / S::kTile * kTileSize + turn % S::kTile * S::kParts;
    }
};
template <class T, class F>
void in_turns_of_slots(const Leaf<T>& leaf, F work) {
    using S = Slot<T>;
    constexpr int kTurn = kSidesInTurn<T>;
    TurnSlots<T> x;
    for (int q = 0; q < leaf.others; q += kTurn) {
        const int count = std::min(kTurn, leaf.others - q);
        for_elements(leaf, q, count,
                     [&](int turn, int l, const T& e) { S::put(x.at(turn) + l * S::kSize, 0, e); });
        work(x, count);
        for_elements(leaf, q, count,
                     [&](int turn, int l, T& e) { e = S::get(x.at(turn) + l * S::kSize, 0); });
    }
}

// work(G, turn) for all of `count` right sides: G from `turn` on, a tile or a single one.
template <class T, class F>
void in_tiles(int count, F work) {
    constexpr int kTile = Slot<T>::kTile;
    int turn = 0;
    for (; turn + kTile <= count; turn += kTile) work(std::integral_constant<int, kTile>{}, turn);
    for (; turn < count; ++turn) work(std::integral_constant<int, 1>{}, turn);
}

// Slots of the coefficients of `count` unknowns from l on in G equations from i on.
template <int G, class T>
void pack_equations(const Leaf<T>& leaf, int i, int l, int count, real_t<T>* slots) {
    for (int k = 0; k < count; ++k, slots += Slot<T>::kSize)
        for (int g = 0; g < G; ++g) Slot<T>::put(slots, g, leaf.coefficient(i + g, l + k));
}

// sum[g] += v[l * kLiveSums + g] * y[l] over ascending l < count.
//
// Each operation stays in its place of the order: left to itself the compiler puts additions off until
// sums have to leave the x87 stack.
template <int N, class R>
[[gnu::always_inline]] inline void add_side_by_side(extended* sum, int count, const R* v,
                                                    const R* y) {
    extended s[N];
#pragma GCC unroll 4
    for (int g = 0; g < N; ++g) s[g] = sum[g];
    const auto step = [&](int l) __attribute__((always_inline)) {
        const extended factor = loaded(y[l]);
#pragma GCC unroll 4
        for (int g = 0; g < N; ++g) {
            extended product = loaded(v[l * kLiveSums + g]) * factor;
            asm volatile("" : "+t"(product));
            s[g] += product;
            asm volatile("" : : "f"(s[g]));
        }
    };
    // Long loops would end in a misprediction.
    for (const R* const end = y + count; y != end; v += kLiveSums, ++y) step(0);
#pragma GCC unroll 4
    for (int g = 0; g < N; ++g) sum[g] = s[g];
}

// The sums over ascending l < count of slots[l], elements side by side, times y[l].
template <int G, class T>
[[gnu::always_inline]] inline void dots(wide_t<T>* sum, int count, const real_t<T>* slots,
                                        const T* y) {
    extended s[G * Slot<T>::kParts] = {};
    if constexpr (is_complex<T>) {
        add_side_by_side<2 * G>(s, 2 * count, slots, &y->re);
#pragma GCC unroll 2
        for (int g = 0; g < G; ++g) sum[g] = {s[2 * g], s[2 * g + 1]};
    } else {
        add_side_by_side<G>(s, count, slots, y);
#pragma GCC unroll 4
        for (int g = 0; g < G; ++g) sum[g] = s[g];
    }
}

} // namespace vor::blas
