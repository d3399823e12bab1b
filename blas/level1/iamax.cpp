// i?amax, i?amin: position, from 1, of the first element of largest or smallest magnitude, which is
// abs(x), for complex elements abs(re) + abs(im); 0 with n < 1 or a step below 1.
//
// Four candidates share the elements: element 4j+k competes with candidate k, what is left behind the
// last full group of four with candidate 4. Among equal candidates the smallest position wins, so that
// the result is that of a sequential scan. A NaN beats every candidate, and every next element beats a
// NaN candidate. The magnitudes of single-precision complex elements are rounded to float.
#include "blas/level1/engines.h"
#include "blas/level1/vector.h"
#include "serv/entry.h"
#include "vor_blas.h"

namespace {

using namespace vor;

inline float magnitude(float x) {
    return __builtin_fabsf(x);
}
inline extended magnitude(double x) {
    return __builtin_fabsl(x);
}
inline float magnitude(const cfloat& x) {
    return magnitude(x.re) + magnitude(x.im);
}
inline extended magnitude(const cdouble& x) {
    return magnitude(x.re) + magnitude(x.im);
}

inline __m128 magnitudes(__m128 x) {
    return _mm_andnot_ps(_mm_set1_ps(-0.0f), x);
}
// Of four elements from x on.
inline __m128 magnitudes(const float* x) {
    return magnitudes(_mm_loadu_ps(x));
}
inline __m128 magnitudes(const cfloat* x) {
    const __m128 low = magnitudes(_mm_loadu_ps(&x[0].re));
    const __m128 high = magnitudes(_mm_loadu_ps(&x[2].re));
    return _mm_add_ps(_mm_shuffle_ps(low, high, _MM_SHUFFLE(2, 0, 2, 0)),
                      _mm_shuffle_ps(low, high, _MM_SHUFFLE(3, 1, 3, 1)));
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
        value[k] = magnitude(element);
        position[k] = at;
    }
    template <class T>
    void compete(int k, const T& element, int at) {
        const M m = magnitude(element);
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

template <class T>
using Measure = decltype(magnitude(T{}));

// 2 or 3 elements. The largest: all but the first compete with candidate 4. The smallest: in order.
template <class Order, class T>
int find_among_few(int n, const T* x, int incx) {
    constexpr bool kLargest = std::is_same_v<Order, Largest>;
    Candidates<Order, Measure<T>> candidates{{0, -1, -1, -1}, {0, 0, 0, 0}};
    candidates.enter(0, *x, 1);
    for (int i = 1; i < n; ++i) candidates.compete(kLargest ? 3 : 0, x[i * incx], i + 1);
    return kLargest ? candidates.winner() : candidates.position[0];
}

template <class Order, class T>
int find_strided(int n, const T* x, int incx) {
    Candidates<Order, Measure<T>> candidates;
    for (int k = 0; k < 4; ++k, x += incx) candidates.enter(k, *x, k + 1);
    int i = 4;
    for (; i + 4 <= n; i += 4)
#pragma GCC unroll 4
        for (int k = 0; k < 4; ++k, x += incx) candidates.compete(k, *x, i + k + 1);
    for (; i < n; ++i, x += incx) candidates.compete(3, *x, i + 1);
    return candidates.winner();
}

// Unit step, candidate k in lane k. Most rounds replace none, which one test tells.
template <class Order, class T>
int find_vectors(int n, const T* x) {
    constexpr int kRound = 16;
    Candidates<Order, float> candidates{{}, {1, 2, 3, 4}};
    __m128 best = magnitudes(x);
    int i = 4;
    const auto compete = [&] {
        const __m128 m = magnitudes(x + i);
        const __m128 mask = Order::replaces(m, best);
        best = _mm_or_ps(_mm_and_ps(mask, m), _mm_andnot_ps(mask, best));
        const int lanes = _mm_movemask_ps(mask);
        for (int k = 0; k < 4; ++k)
            if (lanes >> k & 1) candidates.position[k] = i + k + 1;
    };
    while (i + kRound <= n) {
        const auto mask = [&](int k) { return Order::replaces(magnitudes(x + i + k), best); };
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

template <class Order, class T>
int find(int n, const T* x, int incx) {
    if (n < 1 || incx < 1) return 0;
    if (n == 1) return 1;
    if (n < 4) return find_among_few<Order>(n, x, incx);
    if constexpr (std::is_same_v<Measure<T>, float>)
        if (incx == 1) return find_vectors<Order>(n, x);
    return find_strided<Order>(n, x, incx);
}

} // namespace

#define EXTREME(name, NAME, T, Order)                                                              \
    VOR_ENGINE int vor_blas_##name PARAMS_VALUE(T) {                                               \
        return find<Order>(*n, x, *incx);                                                          \
    }                                                                                              \
    VOR_ENTRY(int, name, NAME, vor_blas_##name, PARAMS_VALUE(T), ARGS_VALUE)
EXTREME(isamax, ISAMAX, float, Largest)
EXTREME(idamax, IDAMAX, double, Largest)
EXTREME(icamax, ICAMAX, vor::cfloat, Largest)
EXTREME(izamax, IZAMAX, vor::cdouble, Largest)
EXTREME(isamin, ISAMIN, float, Smallest)
EXTREME(idamin, IDAMIN, double, Smallest)
EXTREME(icamin, ICAMIN, vor::cfloat, Smallest)
EXTREME(izamin, IZAMIN, vor::cdouble, Smallest)
