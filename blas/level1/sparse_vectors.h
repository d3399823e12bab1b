// The loops of the sparse-vector routines: n values x at given positions of a full vector y.
//
// Elements are worked through in their order: at repeated positions sums accumulate, and the later
// element wins. With n < 1 nothing is read or written, and a sum is 0. W is what sums and rotations
// are calculated in; `group` elements are in straight-line code, which changes no result.
#pragma once

#include "blas/level1/vector.h"

namespace vor::blas {

// Positions that are counted from `first`.
template <int first>
struct Positions {
    const int* at;

    int operator[](int i) const { return at[i] - first; }
};

// step(0) to step(n - 1), `group` of them in a round while more than that remain.
template <int group, class Step>
[[gnu::always_inline]] inline void in_order(int n, Step step) {
    int i = 0;
    if constexpr (group > 1)
        for (; n - i > group; i += group)
#pragma GCC unroll 8
            for (int k = 0; k < group; ++k) step(i + k);
    for (; i < n; ++i) step(i);
}

// y += alpha * x, each element rounded once. An alpha of 0, complex: in both parts, returns at once.
template <int group = 1, class T, class P>
void add_sparse(int n, const T& alpha, const T* x, P positions, T* y) {
    if (is_zero(alpha)) return;
    const auto factor = widen(alpha);
    in_order<group>(n, [&](int i) { add_product(factor, x[i], y[positions[i]]); });
}

template <class W, int group = 1, class R, class P>
R dot_sparse(int n, const R* x, P positions, const R* y) {
    W sum = 0;
    in_order<group>(n, [&](int i) { accumulate(sum, x[i], y[positions[i]]); });
    return static_cast<R>(sum);
}

// Complex: x * y, or conj(x) * y; the four real sums are kept apart until the end.
template <class W, bool conjugate, class T, class P>
T complex_dot_sparse(int n, const T* x, P positions, const T* y) {
    ProductSums<W> sums;
    for (int i = 0; i < n; ++i) sums.add(x[i], y[positions[i]]);
    return sums.template value<conjugate, T>();
}

// x := y
template <int group = 1, class T, class P>
void gather(int n, const T* y, T* x, P positions) {
    in_order<group>(n, [&](int i) { x[i] = y[positions[i]]; });
}

// The same, and 0 into y: of repeated positions the first takes the value, the later ones 0.
template <int group = 1, class T, class P>
void gather_and_zero(int n, T* y, T* x, P positions) {
    in_order<group>(n, [&](int i) {
        T& source = y[positions[i]];
        x[i] = source;
        source = T{};
    });
}

// y := x
template <int group = 1, class T, class P>
void scatter(int n, const T* x, P positions, T* y) {
    in_order<group>(n, [&](int i) { y[positions[i]] = x[i]; });
}

// The plane rotation (x, y) := (c x + s y, c y - s x). The identity returns at once.
template <class W, class R, class P>
void rotate_sparse(int n, R* x, P positions, R* y, W c, W s) {
    if (c == 1 && s == 0) return;
    for (int i = 0; i < n; ++i) rotate(c, s, x[i], y[positions[i]]);
}

} // namespace vor::blas
