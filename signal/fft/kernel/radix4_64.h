// Arithmetic and passes of the 64-bit radix-4 transforms, on the x87 unit.
//
// Four sub-transforms of span L/4 stand side by side in bit-reversed order: position p of the four holds
// the decimated sequence of offset 0, 2, 1, 3. The butterfly of element k,
//   a = x0, b = W^2k x1, c = W^k x2, d = W^3k x3
//   X[k] = (a+b) + (c+d), X[k+L/4] = (a-b) -+ i (c-d), X[k+L/2] = (a+b) - (c+d), X[k+3L/4] = ...
// reads W^k, W^2k, W^3k at index k N/L of the table of N points. The inverse conjugates.
#pragma once

#include "arith/number.h"
#include "signal/fft/kernel/butterfly_64.h"

#include <stddef.h>

namespace vor::fft {

// By parts: a copy of the whole would be made of words, which a load of the parts has to wait for.
inline cdouble load(const cdouble* x) {
    return {x->re, x->im};
}
// x w, or x conj(w).
template <bool inverse>
inline cdouble times(cdouble x, cdouble w) {
    if constexpr (inverse)
        return {x.re * w.re + x.im * w.im, x.im * w.re - x.re * w.im};
    else
        return {x.re * w.re - x.im * w.im, x.re * w.im + x.im * w.re};
}
// -i x, or i x.
template <bool inverse>
inline cdouble turned(cdouble x) {
    return inverse ? cdouble{-x.im, x.re} : cdouble{x.im, -x.re};
}

// The butterfly: multiplied(p) gives x at position p times its twiddle; result q goes to out[q stride].
// In this order of the operations few values leave the registers.
template <bool inverse, class Multiplied>
[[gnu::always_inline]] inline void butterfly(Multiplied multiplied, cdouble* out, size_t stride) {
    const cdouble c = multiplied(2), d = multiplied(3);
    const cdouble t = c + d, v = turned<inverse>(c - d);
    const cdouble b = multiplied(1), a = multiplied(0);
    const cdouble s = a + b, u = a - b;
    out[0] = s + t;
    out[2 * stride] = s - t;
    out[stride] = u + v;
    out[3 * stride] = u - v;
}

// Element k = 0, with no multiplication.
template <bool inverse>
inline void plain_butterfly(const cdouble* x, size_t quarter, cdouble* out, size_t stride) {
    butterfly<inverse>([=](int p) { return load(x + p * quarter); }, out, stride);
}

// `w` points to the twiddles of element k.
template <bool inverse>
[[gnu::always_inline]] inline void butterfly(const cdouble* x, size_t quarter, const cdouble* w,
                                             cdouble* out, size_t stride) {
    const auto multiplied = [=](int p) {
        const cdouble y = load(x + p * quarter);
        return p == 0 ? y : times<inverse>(y, w[p == 1 ? 1 : p == 2 ? 0 : 2]);
    };
    butterfly<inverse>(multiplied, out, stride);
}

// Span 4 to 8 by radix 2; w8 is exp(-2 pi i / 8).
template <bool inverse>
void radix2_pass(cdouble* data, int n, cdouble w8) {
    const auto pair = [](cdouble* x, cdouble b) {
        const cdouble a = load(x);
        x[0] = a + b;
        x[4] = a - b;
    };
    for (cdouble* x = data; x < data + n; x += 8) {
        pair(x, load(x + 4));
        pair(x + 1, times<inverse>(x[5], w8));
        pair(x + 2, turned<inverse>(x[6]));
        pair(x + 3, times<inverse>(turned<inverse>(x[7]), w8));
    }
}

// All groups of `span` in n points; the table is that of `table_points`.
template <bool inverse>
void radix4_pass(cdouble* data, int n, int span, const cdouble* table, int table_points) {
    const int quarter = span / 4, step = 3 * (table_points / span);
    for (cdouble* group = data; group < data + n; group += span) {
        plain_butterfly<inverse>(group, quarter, group, quarter);
        const cdouble* w = table;
        for (int k = 1; k < quarter; ++k) {
            w += step;
            butterfly_in_place<inverse>(group + k, quarter, w);
        }
    }
}

} // namespace vor::fft
