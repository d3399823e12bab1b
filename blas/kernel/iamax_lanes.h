// i?amax and i?amin: magnitudes, their order, the four candidates, and the 4-wide scan of neighbouring
// elements of single precision.
#pragma once

#include "arith/lanes.h"

namespace vor::blas {

// What elements are compared by: |x|, of a complex one |re| + |im|.
template <class T>
inline auto measure(const T& x) {
    if constexpr (is_complex<T>)
        return magnitude(x.re) + magnitude(x.im);
    else
        return magnitude(x);
}

// Whether an element replaces a candidate.
struct Largest {
    template <class M>
    static bool replaces(M element, M candidate) {
        return !(element <= candidate);
    }
    static __m128 replaces(__m128 elements, __m128 candidates) {
        return _mm_cmpnle_ps(elements, candidates);
    }
};
struct Smallest {
    template <class M>
    static bool replaces(M element, M candidate) {
        return !(element >= candidate);
    }
    static __m128 replaces(__m128 elements, __m128 candidates) {
        return _mm_cmpnge_ps(elements, candidates);
    }
};

template <class Order, class M>
struct Candidates {
    M value[4];
    int position[4];

    template <class T>
    void enter(int k, const T& element, int at) {
        value[k] = measure(element);
        position[k] = at;
    }
    template <class T>
    void compete(int k, const T& element, int at) {
        const M m = measure(element);
        if (!Order::replaces(m, value[k])) return;
        value[k] = m;
        position[k] = at;
    }
    int winner() const {
        int best = 0;
        for (int k = 1; k < 4; ++k) {
            const bool wins = value[k] == value[best] ? position[k] < position[best]
                                                      : Order::replaces(value[k], value[best]);
            if (wins) best = k;
        }
        return position[best];
    }
};

// Of four elements from x on.
inline __m128 four_magnitudes(const float* x) {
    return magnitudes(_mm_loadu_ps(x));
}
inline __m128 four_magnitudes(const cfloat* x) {
    const __m128 low = magnitudes(_mm_loadu_ps(&x[0].re));
    const __m128 high = magnitudes(_mm_loadu_ps(&x[2].re));
    return _mm_add_ps(_mm_shuffle_ps(low, high, _MM_SHUFFLE(2, 0, 2, 0)),
                      _mm_shuffle_ps(low, high, _MM_SHUFFLE(3, 1, 3, 1)));
}

// Unit step, candidate k in lane k. Most rounds replace none, which one test tells.
template <class Order, class T>
int find_vectors(int n, const T* x) {
    constexpr int kRound = 16;
    Candidates<Order, float> candidates{{}, {1, 2, 3, 4}};
    __m128 best = four_magnitudes(x);
    int i = 4;
    const auto compete = [&] {
        const __m128 m = four_magnitudes(x + i);
        const __m128 mask = Order::replaces(m, best);
        best = _mm_or_ps(_mm_and_ps(mask, m), _mm_andnot_ps(mask, best));
        const int lanes = _mm_movemask_ps(mask);
        for (int k = 0; k < 4; ++k)
            if (lanes >> k & 1) candidates.position[k] = i + k + 1;
    };
    while (i + kRound <= n) {
        const auto mask = [&](int k) { return Order::replaces(four_magnitudes(x + i + k), best); };
        const __m128 any = _mm_or_ps(_mm_or_ps(mask(0), mask(4)), _mm_or_ps(mask(8), mask(12)));
        const int end = i + kRound;
        if (_mm_movemask_ps(any) == 0) i = end;
        for (; i < end; i += 4) compete();
    }
    for (; i + 4 <= n; i += 4) compete();
    _mm_storeu_ps(candidates.value, best);
    for (; i < n; ++i) candidates.compete(3, x[i], i + 1);
    return candidates.winner();
}

} // namespace vor::blas
