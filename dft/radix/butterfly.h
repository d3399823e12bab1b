// The butterflies of two and four elements, for single numbers and for lanes of four.
//
// Twisted: a block of a transform has constant twiddles. Plain: each element has its own. In either form
// the forward transform goes from natural order to bit-reversed order and the inverse, with conjugate
// twiddles, undoes it step by step:
//
//                forward            inverse
//   twisted      multiply first     multiply last
//   plain        multiply last      multiply first
#pragma once

#include "arith/lanes.h"
#include "signal/direction.h"

namespace vor::dfti::radix {

enum class Twiddling { twisted, plain };

template <Twiddling kind, Direction D>
inline constexpr bool kFirst = (kind == Twiddling::twisted) == (D == Direction::forward);

template <Direction D>
inline constexpr bool kInverse = D == Direction::backward;

// The twiddles of elements 1, 2 and 3 of a butterfly, by get<i>(): at hand,
template <class N>
struct Triple {
    N w1, w2, w3;

    template <int i>
    N get() const {
        return i == 1 ? w1 : i == 2 ? w2 : w3;
    }
};
// in memory, in four-lane form, each loaded where it is used: element 1 has the one at p + 8 first, element 2 that
// at p + 8 second,
template <int first, int second>
struct Stored {
    const float* p;

    template <int i>
    Four get() const {
        return Lanes::load(p + 8 * (i == 1 ? first : i == 2 ? second : 2));
    }
};
// or all of them 1: not multiplied.
struct One {};

template <Direction D, Parted N>
inline N turned_by(N x, N w) {
    if constexpr (std::is_same_v<N, Four>)
        return times<kInverse<D>>(x, w);
    else
        return product<kInverse<D>>(w, x);
}
template <Direction D, Parted N>
inline N turned_by(N x, One) {
    return x;
}

// a - i b forward, a + i b inverse.
template <Direction D, Parted N>
inline N plus_quarter(N a, N b) {
    if constexpr (kInverse<D>)
        return {a.re - b.im, a.im + b.re};
    else
        return {a.re + b.im, a.im - b.re};
}
template <Parted N>
inline N kept(N x) {
    if constexpr (std::is_same_v<N, Four>)
        return held(x);
    else
        return x;
}

// load(i) and store(i, value) of elements 0 and 1.
template <bool first, Direction D, class W, class Load, class Store>
[[gnu::always_inline]] inline void butterfly2(W w, Load load, Store store) {
    const auto a = kept(load(0)), x = kept(load(1));
    const auto b = first ? turned_by<D>(x, w) : x;
    store(0, a + b);
    store(1, first ? a - b : turned_by<D>(a - b, w));
}

// Of elements 0 to 3. Element `mate` is the one that element 0 meets first; in this order of the operations
// few values leave the registers.
template <bool first, Direction D, class Load, class Store, class W>
[[gnu::always_inline]] inline void butterfly4(W w, Load load, Store store) {
    constexpr int mate = kInverse<D> ? 1 : 2, other = 3 - mate;
    constexpr auto reverse = kInverse<D> ? Direction::forward : Direction::backward;
    const auto twiddle = [&w]<int i>() {
        if constexpr (std::is_same_v<W, One>)
            return w;
        else
            return w.template get<i>();
    };
    const auto read = [&]<int i>() {
        const auto x = kept(load(i));
        if constexpr (first && i > 0)
            return turned_by<D>(x, twiddle.template operator()<i>());
        else
            return x;
    };
    const auto write = [&]<int i>(auto x) {
        if constexpr (!first && i > 0)
            store(i, turned_by<D>(x, twiddle.template operator()<i>()));
        else
            store(i, x);
    };
    const auto c = read.template operator()<other>(), d = read.template operator()<3>();
    const auto t = kept(c + d), v = kept(c - d);
    const auto b = read.template operator()<mate>(), a = read.template operator()<0>();
    const auto s = a + b, u = a - b;
    write.template operator()<0>(s + t);
    write.template operator()<other>(s - t);
    write.template operator()<mate>(plus_quarter<D>(u, v));
    write.template operator()<3>(plus_quarter<reverse>(u, v));
}

} // namespace vor::dfti::radix
