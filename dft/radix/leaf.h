// The lowest stages of a block, down to single points: in double precision passes like all others; in single
// precision blocks of sixteen points are finished in registers, with four butterflies of neighbours side by
// side.
#pragma once

#include "dft/radix/passes.h"

namespace vor::dfti::radix {

// Stages that a block of sixteen takes with it.
inline constexpr int kTailStages = 4;

// Sixteen points: the butterflies of elements 4 apart, then those of neighbours.
template <Direction D, bool first, class In, class Out, class W, class V>
inline void sixteen(In x, Out y, W outer, V inner) {
    Four z[4];
    const auto load = [&](int i) { return z[i]; };
    const auto store = [&](int i, Four v) { z[i] = v; };
    if constexpr (D == Direction::forward) {
        butterfly4<first, D>(
            outer, [=](int i) { return x.load(4 * i); }, store);
        transpose(z);
        butterfly4<first, D>(inner, load, store);
        store_block(y, z);
    } else {
        load_block(x, z);
        butterfly4<first, D>(inner, load, store);
        transpose(z);
        butterfly4<first, D>(outer, load, [=](int i, Four v) { y.store(4 * i, v); });
    }
}

template <Direction D, class In, class Out>
void tail(In x, Out y, int n, Staged) {
    constexpr bool first = kFirst<Twiddling::plain, D>;
    const float* const w = program_staged(kTailStages);
    for (int i = 0; i < n; i += 16)
        sixteen<D, first>(x.from(i), y.from(i),
                          Triple<Four>{Lanes::load(w + 8), Lanes::load(w), Lanes::load(w + 16)},
                          One{});
}

template <Direction D, class In, class Out>
void tail(In x, Out y, int n, Twisted<float> source) {
    constexpr bool first = kFirst<Twiddling::twisted, D>;
    const int count = n / 16;
    for (int i = 0; i < count; ++i) {
        const int b = source.position * count + i;
        const float* const w = source.table + twisted_place<float>(4 * b, 0);
        sixteen<D, first>(x.from(16 * i), y.from(16 * i), source.template triple<Four>(b),
                          Triple<Four>{Lanes::load(w), Lanes::load(w + 8), Lanes::load(w + 16)});
    }
}

// A block of 2^k points, k at least 4 in single precision.
template <Direction D, class In, class Out, class Source>
void leaf(In x, Out y, int k, Source source) {
    const int n = 1 << k;
    if constexpr (In::kStep == 1)
        return run_stages<D>(x, x, y, n, k, source);
    else if constexpr (D == Direction::forward) {
        if (k == kTailStages) return tail<D>(x, y, n, source);
        const auto between = in_flight(x);
        run_stages<D>(x, between, between, n, k - kTailStages, source);
        tail<D>(between, y, n, source);
    } else {
        if (k == kTailStages) return tail<D>(x, y, n, source);
        const auto between = in_flight(x);
        tail<D>(x, between, n, source);
        run_stages<D>(between, between, y, n, k - kTailStages, source);
    }
}

} // namespace vor::dfti::radix
