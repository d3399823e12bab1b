// Straight-line complex transforms of 1, 2, 4 and 8 points. All input is read before the first output
// is written, so that source and destination may be the same. The scaled forms multiply by the factor
// as the last step of each output.
#pragma once

#include "signal/fft/context.h"

namespace vor::fft {

template <class R>
struct Small {
    using C = complex_t<R>;
    using Function = void (*)(const C* source, C* destination);
    using Scaled = void (*)(const C* source, C* destination, R factor);

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
            compute<inverse, h>(in[0], even);
            compute<inverse, h>(in[1], odd);
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

    template <bool inverse, int n>
    static void plain(const C* source, C* destination) {
        C X[n];
        compute<inverse, n>(source, X);
        for (int k = 0; k < n; ++k) destination[k] = X[k];
    }
    template <bool inverse, int n>
    static void scaled(const C* source, C* destination, R factor) {
        C X[n];
        compute<inverse, n>(source, X);
        for (int k = 0; k < n; ++k) destination[k] = {X[k].re * factor, X[k].im * factor};
    }

    // By order, 0 to 3. One and two points serve both directions.
    static constexpr Function kForward[] = {plain<false, 1>, plain<false, 2>, plain<false, 4>,
                                            plain<false, 8>};
    static constexpr Function kInverse[] = {plain<false, 1>, plain<false, 2>, plain<true, 4>,
                                            plain<true, 8>};
    static constexpr Scaled kForwardScaled[] = {scaled<false, 1>, scaled<false, 2>,
                                                scaled<false, 4>, scaled<false, 8>};
    static constexpr Scaled kInverseScaled[] = {scaled<false, 1>, scaled<false, 2>, scaled<true, 4>,
                                                scaled<true, 8>};
};

} // namespace vor::fft
