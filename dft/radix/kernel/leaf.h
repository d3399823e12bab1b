// The lowest stages of a block, down to single points: in double precision passes like all others; in single
// precision blocks of sixteen points are finished in registers, with four butterflies of neighbours side by
// side.
#pragma once

#include "dft/radix/kernel/passes.h"

namespace vor::dfti::radix {

// Stages that a block of sixteen takes with it.
inline constexpr int kTailStages = 4;

// Sixteen points: the butterflies of elements 4 apart, then those of neighbours.
template <Direction D, bool first, class In, class Out, class W, class V>
[[gnu::always_inline]] inline void sixteen(In x, Out y, W outer, V inner) {
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

// Plain butterflies of neighbours, of blocks b and b + 1, without twiddles: from their elements in lanes to `y`,
// and from `x` to lanes.
inline void neighbours_to_paired(Four low, Four high, auto y, int b) {
    const auto sums = [](Four x, __m128& sum, __m128& difference) {
        const __m128 p = _mm_unpacklo_ps(x.re, x.im), q = _mm_unpackhi_ps(x.re, x.im);
        sum = p + q;
        difference = p - q;
    };
    __m128 p, q, r, z;
    sums(low, p, q);
    sums(high, r, z);
    const __m128 s = _mm_movelh_ps(p, r), t = _mm_movehl_ps(r, p);
    const __m128 u = _mm_movelh_ps(q, z), v = _mm_movehl_ps(z, q);
    const __m128 turned = _mm_xor_ps(swap_parts(v), _mm_setr_ps(0, -0.0f, 0, -0.0f));
    store_pair(y, b, {s + t, s - t, u + turned, u - turned});
}
inline void neighbours_from_paired(auto x, int b, Four& low, Four& high) {
    __m128 z[4];
    load_pair(x, b, z);
    const __m128 s = z[0] + z[1], u = z[0] - z[1], t = z[2] + z[3], v = z[2] - z[3];
    const __m128 turned = _mm_xor_ps(swap_parts(v), _mm_setr_ps(-0.0f, 0, -0.0f, 0));
    const __m128 y0 = s + t, y1 = u + turned, y2 = s - t, y3 = u - turned;
    low = parts(_mm_movelh_ps(y0, y1), _mm_movelh_ps(y2, y3));
    high = parts(_mm_movehl_ps(y1, y0), _mm_movehl_ps(y3, y2));
}

// Sixteen plain points: the butterflies of neighbours follow, or go before, while the others are under way.
template <Direction D, class In, class Out>
[[gnu::always_inline]] inline void sixteen_plain(In x, Out y, StagedTriple outer) {
    constexpr bool first = kFirst<Twiddling::plain, D>;
    Four kept;
    if constexpr (D == Direction::forward) {
        const auto store = [&](int i, Four v) __attribute__((always_inline)) {
            if (i % 2 == 0)
                kept = v;
            else
                neighbours_to_paired(kept, v, y, i - 1);
        };
        butterfly4<first, D>(
            outer, [=](int i) { return x.load(4 * i); }, store);
    } else {
        const auto load = [&](int i) __attribute__((always_inline)) { // 2, 3, 1, 0
            Four asked = kept;
            if (i == 2) neighbours_from_paired(x, 2, asked, kept);
            if (i == 1) neighbours_from_paired(x, 0, kept, asked);
            return asked;
        };
        butterfly4<first, D>(outer, load, [=](int i, Four v) { y.store(4 * i, v); });
    }
}

template <Direction D, class In, class Out>
void tail(In x, Out y, int n, Staged) {
    const StagedTriple w{program_staged(kTailStages)};
    for (int i = 0; i < n; i += 16) sixteen_plain<D>(x.from(i), y.from(i), w);
}

template <Direction D, class In, class Out>
void tail(In x, Out y, int n, Twisted<float> source) {
    constexpr bool first = kFirst<Twiddling::twisted, D>;
    const int count = n / 16;
    for (int i = 0; i < count; ++i) {
        const int b = source.position * count + i;
        const float* const w = source.table + twisted_place<float>(4 * b, 0);
        sixteen<D, first>(x.from(16 * i), y.from(16 * i), source.template triple<Four>(b),
                          Stored<0, 1>{w});
    }
}

// A block of 2^k points, k at least 4 in single precision.
template <Direction D, class In, class Between, class Out, class Source>
void leaf(In x, Between between, Out y, int k, Source source) {
    const int n = 1 << k;
    if constexpr (In::kStep == 1) {
        run_stages<D>(x, between, y, n, k, source);
    } else if (k == kTailStages) {
        tail<D>(x, y, n, source);
    } else if constexpr (D == Direction::forward) {
        run_stages<D>(x, between, between, n, k - kTailStages, source);
        tail<D>(between, y, n, source);
    } else {
        tail<D>(x, between, n, source);
        run_stages<D>(between, between, y, n, k - kTailStages, source);
    }
}
template <Direction D, class In, class Out, class Source>
void leaf(In x, Out y, int k, Source source) {
    leaf<D>(x, in_flight(x), y, k, source);
}

} // namespace vor::dfti::radix
