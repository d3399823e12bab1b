// Transforms of 1, 2, 4 and 8 values in straight-line code, and the choice among a few lengths. Real
// spectra stand in Perm order.
#pragma once

#include "arith/number.h"
#include "signal/direction.h"

namespace vor::signal {

// -i x forward, i x backward.
template <Direction D, Parted C>
constexpr C turned(C x) {
    return D == Direction::forward ? C{x.im, -x.re} : C{-x.im, x.re};
}

template <class R>
constexpr R kHalfRoot = static_cast<R>(0.70710678118654752440L);

// Each operation is small<n, D>(x, y), from n values to n others.

template <int n, Direction D, Parted C>
inline void small(const C* x, C* y) {
    if constexpr (n == 1) {
        y[0] = x[0];
    } else if constexpr (n == 2) {
        y[0] = x[0] + x[1];
        y[1] = x[0] - x[1];
    } else {
        // The even and the odd values by themselves.
        constexpr int h = n / 2;
        C part[2][h], even[h], odd[h];
        for (int k = 0; k < h; ++k) {
            part[0][k] = x[2 * k];
            part[1][k] = x[2 * k + 1];
        }
        small<h, D>(part[0], even);
        small<h, D>(part[1], odd);
        if constexpr (n == 8) {
            const auto eighth = [](C a) { // by exp(-+ i pi / 4)
                return kHalfRoot<real_t<C>> * (a + turned<D>(a));
            };
            odd[1] = eighth(odd[1]);
            odd[3] = turned<D>(eighth(odd[3]));
        }
        odd[h / 2] = turned<D>(odd[h / 2]);
        for (int k = 0; k < h; ++k) {
            y[k] = even[k] + odd[k];
            y[k + h] = even[k] - odd[k];
        }
    }
}

// Perm order of 4 values: X[0], X[2], re X[1], im X[1].
template <class R>
inline void spectrum_of_four(const R* x, int step, R* y) {
    const R s = x[0] + x[2 * step], t = x[step] + x[3 * step];
    y[0] = s + t;
    y[1] = s - t;
    y[2] = x[0] - x[2 * step];
    y[3] = x[3 * step] - x[step];
}
template <class R>
inline void four_of_spectrum(const R* x, R* y, int step) {
    const R s = x[0] + x[1], t = x[0] - x[1], re = x[2] + x[2], im = x[3] + x[3];
    y[0] = s + re;
    y[step] = t - im;
    y[2 * step] = s - re;
    y[3 * step] = t + im;
}

template <class R>
inline void spectrum_of_eight(const R* x, R* y) {
    R even[4], odd[4];
    spectrum_of_four(x, 2, even);
    spectrum_of_four(x + 1, 2, odd);
    // The odd part of X[1], by exp(-i pi / 4).
    const R re = (odd[2] + odd[3]) * kHalfRoot<R>, im = (odd[3] - odd[2]) * kHalfRoot<R>;
    y[0] = even[0] + odd[0];
    y[1] = even[0] - odd[0];
    y[2] = even[2] + re;
    y[3] = even[3] + im;
    y[4] = even[1];
    y[5] = -odd[1];
    y[6] = even[2] - re;
    y[7] = im - even[3];
}
template <class R>
inline void eight_of_spectrum(const R* x, R* y) {
    const R re = x[2] - x[6], im = x[3] + x[7]; // of the odd part, before exp(i pi / 4)
    const R even[4] = {x[0] + x[1], x[4] + x[4], x[2] + x[6], x[3] - x[7]};
    const R odd[4] = {x[0] - x[1], -(x[5] + x[5]), (re - im) * kHalfRoot<R>,
                      (re + im) * kHalfRoot<R>};
    four_of_spectrum(even, y, 2);
    four_of_spectrum(odd, y + 1, 2);
}

template <int n, Direction D, class R>
requires std::is_floating_point_v<R>
inline void small(const R* x, R* y) {
    if constexpr (n == 1) {
        y[0] = x[0];
    } else if constexpr (n == 2) {
        y[0] = x[0] + x[1];
        y[1] = x[0] - x[1];
    } else if constexpr (n == 4) {
        D == Direction::forward ? spectrum_of_four(x, 1, y) : four_of_spectrum(x, y, 1);
    } else {
        static_assert(n == 8);
        D == Direction::forward ? spectrum_of_eight(x, y) : eight_of_spectrum(x, y);
    }
}

struct Small {
    template <int n, Direction D, class E>
    static void run(const E* x, E* y) {
        small<n, D>(x, y);
    }
};

// The lengths of one kind of object: Transform::run<n, D>(x, y), each result multiplied by a factor or not.
// All input is read before the first result is written, so that x and y may be the same.
template <class Transform, class E, int... lengths>
class SmallLengths {
public:
    // `which`: place of the length in the list.
    template <Direction D>
    static void run(int which, const E* x, E* y, bool scaled, real_t<E> factor) {
        static constexpr Function kTable[2][sizeof...(lengths)] = {{one<lengths, D, false>...},
                                                                   {one<lengths, D, true>...}};
        kTable[scaled][which](x, y, factor);
    }

private:
    using Function = void (*)(const E*, E*, real_t<E>);

    template <int n, Direction D, bool scaled>
    static void one(const E* x, E* y, real_t<E> factor) {
        E out[n];
        Transform::template run<n, D>(x, out);
        for (int k = 0; k < n; ++k) y[k] = scaled ? E(out[k] * factor) : out[k];
    }
};

} // namespace vor::signal
