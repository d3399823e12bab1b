// Real transforms of 1, 2, 4 and 8 points, spectra in Perm.
#pragma once

#include "signal/fft/straight_line.h"

namespace vor::fft {

template <class R>
struct SmallReal {
    static constexpr R kHalfRoot = static_cast<R>(0.70710678118654752440L);

    // X[0], X[2], X[1] of x[0], x[step], ...
    static void forward_4(const R* x, int step, R (&X)[4]) {
        const R s = x[0] + x[2 * step], t = x[step] + x[3 * step];
        X[0] = s + t;
        X[1] = s - t;
        X[2] = x[0] - x[2 * step];
        X[3] = x[3 * step] - x[step];
    }
    static void inverse_4(const R (&X)[4], R* x, int step) {
        const R s = X[0] + X[1], t = X[0] - X[1], re = X[2] + X[2], im = X[3] + X[3];
        x[0] = s + re;
        x[step] = t - im;
        x[2 * step] = s - re;
        x[3 * step] = t + im;
    }

    template <int n>
    static void forward(const R* x, R (&X)[n]) {
        if constexpr (n == 1) {
            X[0] = x[0];
        } else if constexpr (n == 2) {
            X[0] = x[0] + x[1];
            X[1] = x[0] - x[1];
        } else if constexpr (n == 4) {
            forward_4(x, 1, X);
        } else {
            R even[4], odd[4];
            forward_4(x, 2, even);
            forward_4(x + 1, 2, odd);
            // The odd part of X[1], by exp(-i pi / 4).
            const R re = (odd[2] + odd[3]) * kHalfRoot, im = (odd[3] - odd[2]) * kHalfRoot;
            X[0] = even[0] + odd[0];
            X[1] = even[0] - odd[0];
            X[2] = even[2] + re;
            X[3] = even[3] + im;
            X[4] = even[1];
            X[5] = -odd[1];
            X[6] = even[2] - re;
            X[7] = im - even[3];
        }
    }

    template <int n>
    static void inverse(const R* X, R (&x)[n]) {
        if constexpr (n == 1 || n == 2) {
            forward<n>(X, x);
        } else if constexpr (n == 4) {
            const R copy[4] = {X[0], X[1], X[2], X[3]};
            inverse_4(copy, x, 1);
        } else {
            const R re = X[2] - X[6], im = X[3] + X[7]; // of the odd part, before exp(i pi / 4)
            const R even[4] = {X[0] + X[1], X[4] + X[4], X[2] + X[6], X[3] - X[7]};
            const R odd[4] = {X[0] - X[1], -(X[5] + X[5]), (re - im) * kHalfRoot,
                              (re + im) * kHalfRoot};
            inverse_4(even, x, 2);
            inverse_4(odd, x + 1, 2);
        }
    }

    template <bool backward, int n>
    static void compute(const R* source, R (&out)[n]) {
        if constexpr (backward)
            inverse<n>(source, out);
        else
            forward<n>(source, out);
    }
};

template <class R>
using RealSmall = StraightLine<SmallReal<R>, R, R>;

} // namespace vor::fft
