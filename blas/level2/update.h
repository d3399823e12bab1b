// Symmetric and Hermitian updates of the stored triangle of A, column by column:
//
//   rank 1   A := A + alpha * x * x^H                                  alpha real
//   rank 2   A := A + alpha * x * y^H + conj(alpha) * y * x^H
//
// alpha = 0    nothing happens
// x[j] = 0     (rank 2: and y[j] = 0) column j is passed over, whatever the others hold
// Hermitian    the imaginary part of the diagonal is taken for 0 and left as 0, in passed columns too
#pragma once

#include "blas/level2/triangle.h"

namespace vor::blas {

// The diagonal after something was added to it: `added` without its imaginary part.
template <class T>
void add_to_diagonal(T* diagonal, work_t<T> added) {
    if constexpr (is_complex<T>)
        *diagonal = {static_cast<real_t<T>>(work_real_t<T>{diagonal->re} + added.re), 0};
    else
        *diagonal = static_cast<T>(work_t<T>{*diagonal} + added);
}

template <class T>
void pass_over(T* diagonal) {
    if constexpr (is_complex<T>) diagonal->im = 0;
}

template <class Triangle, class T>
void rank_one(const Triangle& a, real_t<T> alpha, const T* x, int incx) {
    using V = work_t<T>;
    if (a.n < 1 || alpha == 0) return;
    on_vector(a.n, x, incx, [&](auto v) {
        for (int j = 0; j < a.n; ++j) {
            if (is_zero(v[j])) {
                pass_over(a.diagonal(j));
                continue;
            }
            const V t = number<V>(conjugated(v[j])) * work_real_t<T>{alpha};
            const Rows rows = stored_rows(a, j);
            update_column(rows.count, at(a, rows.first, j), t, v.from(rows.first));
            add_to_diagonal(a.diagonal(j), number<V>(v[j]) * t);
        }
    });
}

template <class Triangle, class T, class X, class Y>
void rank_two_column(const Triangle& a, int j, T alpha, X x, Y y) {
    using V = work_t<T>;
    if (is_zero(x[j]) && is_zero(y[j])) return pass_over(a.diagonal(j));
    const V t = number<V>(alpha) * number<V>(conjugated(y[j]));
    const V u = number<V>(conjugated(alpha)) * number<V>(conjugated(x[j]));
    const Rows rows = stored_rows(a, j);
    update_column(rows.count, at(a, rows.first, j), t, x.from(rows.first), u, y.from(rows.first));
    add_to_diagonal(a.diagonal(j), number<V>(x[j]) * t + number<V>(y[j]) * u);
}

template <class Triangle, class T>
void rank_two(const Triangle& a, T alpha, const T* x, int incx, const T* y, int incy) {
    if (a.n < 1 || is_zero(alpha)) return;
    on_vectors(a.n, x, incx, a.n, y, incy, [&](auto v, auto w) {
        for (int j = 0; j < a.n; ++j) rank_two_column(a, j, alpha, v, w);
    });
}

} // namespace vor::blas
