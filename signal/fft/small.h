// Complex transforms of 1, 2, 4 and 8 points, each by two of half the length.
#pragma once

#include "signal/fft/straight_line.h"

namespace vor::fft {

template <class R>
struct SmallComplex {
    using C = complex_t<R>;

    static C add(C a, C b) { return {a.re + b.re, a.im + b.im}; }
    static C sub(C a, C b) { return {a.re - b.re, a.im - b.im}; }
    // -i x forward, i x inverse.
    template <bool inverse>
    static C turned(C x) {
        return inverse ? C{-x.im, x.re} : C{x.im, -x.re};
    }
    template <bool inverse>
    static C eighth(C x) { // by exp(-+ i pi / 4)
        constexpr R half_root = static_cast<R>(0.70710678118654752440L);
        const C y = turned<inverse>(x);
        return {(x.re + y.re) * half_root, (x.im + y.im) * half_root};
    }

    template <bool inverse, int n>
    static void compute(const C* x, C (&X)[n]) {
        if constexpr (n == 1) {
            X[0] = x[0];
        } else if constexpr (n == 2) {
            X[0] = add(x[0], x[1]);
            X[1] = sub(x[0], x[1]);
        } else {
            constexpr int h = n / 2;
            C in[2][h], even[h], odd[h];
            for (int k = 0; k < h; ++k) {
                in[0][k] = x[2 * k];
                in[1][k] = x[2 * k + 1];
            }
            compute<inverse>(in[0], even);
            compute<inverse>(in[1], odd);
            if constexpr (n == 8) {
                odd[1] = eighth<inverse>(odd[1]);
                odd[3] = turned<inverse>(eighth<inverse>(odd[3]));
            }
            odd[h / 2] = turned<inverse>(odd[h / 2]);
            for (int k = 0; k < h; ++k) {
                X[k] = add(even[k], odd[k]);
                X[k + h] = sub(even[k], odd[k]);
            }
        }
    }
};

template <class R>
using Small = StraightLine<SmallComplex<R>, complex_t<R>, R>;

} // namespace vor::fft
