// y := alpha * A * x + beta * y for a symmetric or Hermitian A of which one triangle is stored. Each
// stored element is read once, for its own row and for its mirror's. The imaginary part of a Hermitian
// diagonal is not read.
//
// Neighbouring x and y: `group` columns at a time, first the corner that they have on the diagonal,
// then the rows that all of them share, then, in a band, the rows that some of them have alone.
#pragma once

#include "blas/level2/triangle.h"
#include "blas/level2/vector.h"

namespace vor::blas {

// What counts of an element of the diagonal, in the arithmetic of its type.
template <class T>
work_real_t<T> real_part(const T& x) {
    if constexpr (is_complex<T>)
        return x.re;
    else
        return x;
}

// Columns j to j + columns - 1 and, mirrored, the rows of these numbers. What they gather, s, is multiplied
// by alpha at the end; what they meet on the diagonal, own, comes with t = alpha x.
template <int columns, class Triangle, class T, class X, class Y>
void add_symmetric_columns(const Triangle& a, int j, T alpha, X x, Y y) {
    using V = work_t<T>;
    Numbers<columns, V> t, s, own;
#pragma GCC unroll 4
    for (int q = 0; q < columns; ++q) t.of[q] = factor<V>(alpha) * number<V>(x[j + q]);

#pragma GCC unroll 4
    for (int q = 0; q < columns; ++q) {
        own.of[q] = own.of[q] + real_part(*a.diagonal(j + q)) * t.of[q];
#pragma GCC unroll 4
        for (int p = 0; p < columns; ++p) {
            if (p == q || (p < q) != a.upper) continue; // not stored
            const V corner = number<V>(*at(a, j + p, j + q));
            own.of[p] = own.of[p] + corner * t.of[q];
            s.of[q] = s.of[q] + product<true>(corner, number<V>(x[j + p]));
        }
    }

    const Rows shared = shared_rows<columns>(a, j);
    add_and_dot_columns<true>(shared.count, columns_from<columns>(a, shared.first, j), t,
                              x.from(shared.first), y.from(shared.first), s);
    if constexpr (columns > 1 && Triangle::kBand) {
#pragma GCC unroll 4
        for (int q = 0; q < columns; ++q) {
            const Rows alone = rows_alone(a, j + q, shared);
            Numbers<1, V> sq = {s.of[q]};
            add_and_dot_columns<true>(alone.count, columns_from<1>(a, alone.first, j + q),
                                      Numbers<1, V>{t.of[q]}, x.from(alone.first),
                                      y.from(alone.first), sq);
            s.of[q] = sq.of[0];
        }
    }

#pragma GCC unroll 4
    for (int q = 0; q < columns; ++q)
        y[j + q] = element<T>(number<V>(y[j + q]) + own.of[q] + factor<V>(alpha) * s.of[q]);
}

template <int group, class Triangle, class T>
void symmetric_product(const Triangle& a, T alpha, const T* x, int incx, T beta, T* y, int incy) {
    const int n = a.n;
    if (n < 1 || (is_zero(alpha) && is_one(beta))) return;
    scale(n, beta, y, incy);
    if (is_zero(alpha)) return;
    on_vectors(n, x, incx, n, y, incy, [&](auto xs, auto ys) {
        int j = 0;
        if constexpr (group > 1 && std::is_same_v<decltype(xs.step), Unit>)
            if (a.reach(a.upper ? n - 1 : 0) >= group - 1)
                for (; j + group <= n; j += group)
                    add_symmetric_columns<group>(a, j, alpha, xs, ys);
        for (; j < n; ++j) add_symmetric_columns<1>(a, j, alpha, xs, ys);
    });
}

} // namespace vor::blas
