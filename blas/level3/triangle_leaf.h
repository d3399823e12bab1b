// A diagonal block as its leaf sees it: the side, the triangle and the transposition are in the steps,
// so that one loop serves every case. And the sums that the leaves on the x87 unit are made of.
#pragma once

#include "blas/level1/vector.h"
#include "blas/level3/triangular.h"

namespace vor {

// Unknown i of right side q stands at b[i * step + q * next], its coefficient in equation l at
// t[l * row + i * column], conjugated if `conjugated`. Unknowns are numbered in the order in which a
// leaf takes them: a solve finds unknown i from those before it, a product from those behind it.
template <class T>
struct Leaf {
    int order, others;
    const T* t;
    int row, column;
    T* b;
    int step, next;
    bool unit, conjugated;

    Leaf(const Triangular<T>& p, bool ascending)
        : order(p.order()), others(p.others()), t(p.a), b(p.b), unit(p.unit()),
          conjugated(p.conjugated()) {
        const bool down = p.left() == p.plain(); // equations run down the columns of A
        row = down ? 1 : p.lda;
        column = down ? p.lda : 1;
        step = p.left() ? 1 : p.ldb;
        next = p.left() ? p.ldb : 1;
        if (ascending) return;
        t += (order - 1) * (row + column);
        b += (order - 1) * step;
        row = -row, column = -column, step = -step;
    }

    const T* coefficient(int i, int l) const { return t + i * row + l * column; }
    T* side(int q) const { return b + q * next; }
};

// ---- Extended precision.

template <class T>
using Wide = decltype(widen(T{}));

// As many sums as the x87 registers hold beside the operands.
template <class T>
inline constexpr int kLiveSums = is_complex<T> ? 2 : 4;

template <class T>
inline T narrow(const Wide<T>& x) {
    if constexpr (is_complex<T>)
        return {static_cast<real_t<T>>(x.re), static_cast<real_t<T>>(x.im)};
    else
        return static_cast<T>(x);
}

inline extended times(extended x, extended y) {
    return x * y;
}
inline cextended times(const cextended& x, const cextended& y) {
    return {x.re * y.re - x.im * y.im, x.re * y.im + x.im * y.re};
}
inline extended plus(extended x, extended y) {
    return x + y;
}
inline cextended plus(const cextended& x, const cextended& y) {
    return {x.re + y.re, x.im + y.im};
}
inline extended minus(extended x, extended y) {
    return x - y;
}
inline cextended minus(const cextended& x, const cextended& y) {
    return {x.re - y.re, x.im - y.im};
}

// A coefficient, conjugated if Conj.
template <bool Conj, class T>
inline Wide<T> wide_coefficient(const T& x) {
    Wide<T> value = widen(x);
    if constexpr (Conj) value.im = -value.im;
    return value;
}

// sum + x * y, or minus it.
template <bool Minus>
[[gnu::always_inline]] inline void accumulate(extended& sum, extended x, extended y) {
    if constexpr (Minus)
        sum -= x * y;
    else
        sum += x * y;
}

// sum[g] += v[g * lane + l * v_step] * y[l * y_step] over ascending l < count; ConjV, ConjY: with v or
// y conjugated.
template <bool ConjV, bool ConjY, int G, class T>
[[gnu::always_inline]] inline void add_dots(Wide<T>* sum, int count, const T* v, int lane,
                                            int v_step, const T* y, int y_step) {
    if constexpr (is_complex<T>) {
        extended re[G], im[G];
#pragma GCC unroll 4
        for (int g = 0; g < G; ++g) re[g] = sum[g].re, im[g] = sum[g].im;
        for (int l = 0; l < count; ++l, v += v_step, y += y_step) {
            const extended yr = y->re;
#pragma GCC unroll 4
            for (int g = 0; g < G; ++g) {
                accumulate<false>(re[g], v[g * lane].re, yr);
                accumulate<ConjV>(im[g], v[g * lane].im, yr);
            }
            // v is loaded again: kept in registers it would cost the sums theirs.
            asm volatile("" ::: "memory");
            const extended yi = y->im;
#pragma GCC unroll 4
            for (int g = 0; g < G; ++g) {
                accumulate<ConjV == ConjY>(re[g], v[g * lane].im, yi);
                accumulate<ConjY>(im[g], v[g * lane].re, yi);
            }
        }
#pragma GCC unroll 4
        for (int g = 0; g < G; ++g) sum[g] = {re[g], im[g]};
    } else {
        extended s[G];
#pragma GCC unroll 4
        for (int g = 0; g < G; ++g) s[g] = sum[g];
        for (int l = 0; l < count; ++l, v += v_step, y += y_step) {
            const extended factor = *y;
#pragma GCC unroll 4
            for (int g = 0; g < G; ++g) s[g] += v[g * lane] * factor;
        }
#pragma GCC unroll 4
        for (int g = 0; g < G; ++g) sum[g] = s[g];
    }
}

} // namespace vor
