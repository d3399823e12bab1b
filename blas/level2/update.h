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

// The factors of x and of y in column j.
template <class V, class T, class X, class Y>
Numbers<2, V> rank_two_factors(T alpha, X x, Y y, int j) {
    return {number<V>(alpha) * number<V>(conjugated(y[j])),
            number<V>(conjugated(alpha)) * number<V>(conjugated(x[j]))};
}

template <class Triangle, class T, class X, class Y>
[[gnu::always_inline]] inline void rank_two_column(const Triangle& a, int j, T alpha, X x, Y y) {
    using V = work_t<T>;
    if (is_zero(x[j]) && is_zero(y[j])) return pass_over(a.diagonal(j));
    const Numbers<2, V> t = rank_two_factors<V>(alpha, x, y, j);
    const Rows rows = stored_rows(a, j);
    update_column(rows.count, at(a, rows.first, j), t.of[0], x.from(rows.first), t.of[1],
                  y.from(rows.first));
    add_to_diagonal(a.diagonal(j), number<V>(x[j]) * t.of[0] + number<V>(y[j]) * t.of[1]);
}

// Columns j and j + 1, neither of which is passed over: the rows that they share with each load of x and y.
template <class Triangle, class T, class X, class Y>
[[gnu::always_inline]] inline void rank_two_pair(const Triangle& a, int j, T alpha, X x, Y y) {
    using V = work_t<T>;
    const Numbers<2, V> t = rank_two_factors<V>(alpha, x, y, j),
                        u = rank_two_factors<V>(alpha, x, y, j + 1);
    const Rows rows = shared_rows<2>(a, j);
    update_columns(rows.count, at(a, rows.first, j), t, at(a, rows.first, j + 1), u,
                   x.from(rows.first), y.from(rows.first));
    const int row = a.upper ? j : j + 1; // the element beside the diagonal
    const Numbers<2, V>& f = a.upper ? u : t;
    T* const corner = at(a, row, a.upper ? j + 1 : j);
    *corner =
        element<T>(number<V>(x[row]) * f.of[0] + number<V>(*corner) + number<V>(y[row]) * f.of[1]);
    add_to_diagonal(a.diagonal(j), number<V>(x[j]) * t.of[0] + number<V>(y[j]) * t.of[1]);
    add_to_diagonal(a.diagonal(j + 1),
                    number<V>(x[j + 1]) * u.of[0] + number<V>(y[j + 1]) * u.of[1]);
}

template <class Triangle, class T>
void rank_two(const Triangle& a, T alpha, const T* x, int incx, const T* y, int incy) {
    if (a.n < 1 || is_zero(alpha)) return;
    on_vectors(a.n, x, incx, a.n, y, incy, [&](auto v, auto w) {
        constexpr bool kPairs = std::is_same_v<T, double> &&
                                std::is_same_v<decltype(v.step), Unit> &&
                                std::is_same_v<Triangle, FullTriangle<T>>;
        const auto passed = [&](int j) { return is_zero(v[j]) && is_zero(w[j]); };
        for (int j = 0; j < a.n; ++j) {
            if constexpr (kPairs)
                if (j + 1 < a.n && !passed(j) && !passed(j + 1)) {
                    rank_two_pair(a, j++, alpha, v, w);
                    continue;
                }
            rank_two_column(a, j, alpha, v, w);
        }
    });
}

} // namespace vor::blas
