// Radix-4 kernel of the 64-bit engine: N = 8 to 512 points, decimation in time, in place.
//
// Four sub-transforms of span L/4 stand side by side in bit-reversed order: position p of the four holds
// the decimated sequence of offset 0, 2, 1, 3. The butterfly of element k,
//   a = x0, b = W^2k x1, c = W^k x2, d = W^3k x3
//   X[k] = (a+b) + (c+d), X[k+L/4] = (a-b) -+ i (c-d), X[k+L/2] = (a+b) - (c+d), X[k+3L/4] = ...
// reads its triple of twiddles at index k N/L of the table. The inverse conjugates.
#include "signal/fft/kernels.h"

namespace {

using C = vor::cdouble;

inline C operator+(C a, C b) {
    return {a.re + b.re, a.im + b.im};
}
inline C operator-(C a, C b) {
    return {a.re - b.re, a.im - b.im};
}
// x w, or x conj(w).
template <bool inverse>
inline C times(C x, C w) {
    if constexpr (inverse)
        return {x.re * w.re + x.im * w.im, x.im * w.re - x.re * w.im};
    else
        return {x.re * w.re - x.im * w.im, x.re * w.im + x.im * w.re};
}
// -i x, or i x.
template <bool inverse>
inline C turned(C x) {
    return inverse ? C{-x.im, x.re} : C{x.im, -x.re};
}

template <bool inverse>
inline void butterfly(C* x, int quarter, C b, C c, C d) {
    const C a = x[0], s = a + b, t = c + d, u = a - b, v = turned<inverse>(c - d);
    x[0] = s + t;
    x[quarter] = u + v;
    x[2 * quarter] = s - t;
    x[3 * quarter] = u - v;
}

template <bool inverse>
inline void plain_butterfly(C* x, int quarter) {
    butterfly<inverse>(x, quarter, x[quarter], x[2 * quarter], x[3 * quarter]);
}

template <bool inverse>
void radix2_pass(C* data, int n, C w8) {
    for (C* x = data; x < data + n; x += 8) {
        const C b[4] = {x[4], times<inverse>(x[5], w8), turned<inverse>(x[6]),
                        times<inverse>(turned<inverse>(x[7]), w8)};
        for (int k = 0; k < 4; ++k) {
            const C a = x[k];
            x[k] = a + b[k];
            x[k + 4] = a - b[k];
        }
    }
}

template <bool inverse>
void radix4_pass(C* data, int n, int span, const C* table) {
    const int quarter = span / 4, step = 3 * (n / span);
    for (C* group = data; group < data + n; group += span) {
        plain_butterfly<inverse>(group, quarter);
        const C* w = table;
        for (int k = 1; k < quarter; ++k) {
            C* x = group + k;
            w += step;
            butterfly<inverse>(x, quarter, times<inverse>(x[quarter], w[1]),
                               times<inverse>(x[2 * quarter], w[0]),
                               times<inverse>(x[3 * quarter], w[2]));
        }
    }
}

template <bool inverse>
void radix4(C* data, int n, const C* table) {
    for (C* x = data; x < data + n; x += 4) plain_butterfly<inverse>(x, 1);
    int span = 4;
    if (n / 4 & 0x2AAAAAAA) {
        radix2_pass<inverse>(data, n, table[3 * (n / 8)]);
        span = 8;
    }
    while (span < n) {
        span *= 4;
        radix4_pass<inverse>(data, n, span, table);
    }
}

} // namespace

extern "C" void tavs_cRadix4Fwd_64fc(C* data, int n, const C* table) {
    radix4<false>(data, n, table);
}
extern "C" void tavs_cRadix4Inv_64fc(C* data, int n, const C* table) {
    radix4<true>(data, n, table);
}
