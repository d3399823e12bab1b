// Transforms of 1 to 4 values in straight-line code, each result multiplied by a factor or not. All
// input is read before the first result is written. Real spectra stand in Perm order.
#pragma once

#include "signal/dft/radix.h"

namespace vor::dft {

template <int N, Direction D, bool kScaled, Parted C>
void tiny(const C* x, C* y, real_t<C> factor) {
    transform<D, C>(
        FixedRadix<N>{}, [&](int m) VOR_INLINE { return x[m]; },
        [&](int m, C a) VOR_INLINE { y[m] = kScaled ? factor * a : a; });
}

template <int N, class T>
VOR_INLINE inline void tiny_spectrum(const T (&x)[N], T (&y)[N]) {
    if constexpr (N == 1) y[0] = x[0];
    if constexpr (N == 2) y[0] = x[0] + x[1], y[1] = x[0] - x[1];
    if constexpr (N == 3)
        FixedRadix<3>{}.run(
            x[0], [&](int) { return make_pair(x[1], x[2]); }, [&](T y0) { y[0] = y0; },
            [&](int, Sums<T> t) { y[1] = t.a, y[2] = t.b; });
    if constexpr (N == 4) {
        const Pair<T> even = make_pair(x[0], x[2]), odd = make_pair(x[1], x[3]);
        y[0] = even.s + odd.s;
        y[1] = even.s - odd.s;
        y[2] = even.d;
        y[3] = -odd.d;
    }
}

template <int N, class T>
VOR_INLINE inline void tiny_signal(const T (&x)[N], T (&y)[N]) {
    if constexpr (N <= 2) tiny_spectrum(x, y);
    if constexpr (N == 3)
        FixedRadix<3>{}.run(
            x[0],
            [&](int) {
                return Pair<T>{2 * x[1], 2 * x[2]};
            },
            [&](T y0) { y[0] = y0; }, [&](int, Sums<T> t) { y[1] = t.a + t.b, y[2] = t.a - t.b; });
    if constexpr (N == 4) {
        const Pair<T> p = make_pair(x[0], x[1]);
        const T re = 2 * x[2], im = 2 * x[3];
        y[0] = p.s + re;
        y[1] = p.d - im;
        y[2] = p.s - re;
        y[3] = p.d + im;
    }
}

template <int N, Direction D, bool kScaled, class T>
requires(!is_complex<T>) void tiny(const T* x, T* y, T factor) {
    T a[N], b[N];
    for (int m = 0; m < N; ++m) a[m] = x[m];
    if constexpr (D == Direction::forward)
        tiny_spectrum(a, b);
    else
        tiny_signal(a, b);
    for (int m = 0; m < N; ++m) y[m] = kScaled ? factor * b[m] : b[m];
}

// E complex or real, n from 1 to 4.
template <Direction D, class E>
void tiny_transform(const E* x, E* y, int n, bool scaled, real_t<E> factor) {
    using Function = void (*)(const E*, E*, real_t<E>);
    static constexpr Function kTable[2][4] = {
        {tiny<1, D, false>, tiny<2, D, false>, tiny<3, D, false>, tiny<4, D, false>},
        {tiny<1, D, true>, tiny<2, D, true>, tiny<3, D, true>, tiny<4, D, true>}};
    kTable[scaled][n - 1](x, y, factor);
}

} // namespace vor::dft
