// Transforms of 1 to 4 values. Real spectra stand in Perm order.
#pragma once

#include "signal/dft/radix.h"
#include "signal/small.h"

namespace vor::dft {

struct Tiny {
    template <int n, Direction D, Parted C>
    static void run(const C* x, C* y) {
        if constexpr (n == 3)
            transform<D, C>(
                FixedRadix<3>{}, [&](int m) VOR_INLINE { return x[m]; },
                [&](int m, C a) VOR_INLINE { y[m] = a; });
        else
            signal::small<n, D>(x, y);
    }

    template <int n, Direction D, class T>
    requires std::is_floating_point_v<T>
    static void run(const T* x, T* y) {
        if constexpr (n != 3) {
            signal::small<n, D>(x, y);
        } else if constexpr (D == Direction::forward) {
            FixedRadix<3>{}.run(
                x[0], [&](int) { return make_pair(x[1], x[2]); }, [&](T y0) { y[0] = y0; },
                [&](int, Sums<T> t) { y[1] = t.a, y[2] = t.b; });
        } else {
            FixedRadix<3>{}.run(
                x[0],
                [&](int) {
                    return Pair<T>{2 * x[1], 2 * x[2]};
                },
                [&](T y0) { y[0] = y0; },
                [&](int, Sums<T> t) { y[1] = t.a + t.b, y[2] = t.a - t.b; });
        }
    }
};

template <class E>
using TinyLengths = signal::SmallLengths<Tiny, E, 1, 2, 3, 4>;

} // namespace vor::dft
