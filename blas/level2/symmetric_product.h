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

template <int columns, class Triangle, class T, class X, class Y>
void add_symmetric_columns(const Triangle& a, int j, T alpha, X x, Y y) {
    using V = work_t<T>;
    const V scale = number<V>(alpha);
    Numbers<columns, V> t, s, own;
    for (int q = 0; q < columns; ++q) t.of[q] = scale * number<V>(x[j + q]);

    for (int q = 0; q < columns; ++q) {
        V diagonal = number<V>(*a.diagonal(j + q));
        if constexpr (is_complex<T>) diagonal.im = 0;
        own.of[q] = own.of[q] + diagonal * t.of[q];
        for (int p = a.upper ? 0 : q + 1; p < (a.upper ? q : columns); ++p) {
            const V corner = number<V>(*at(a, j + p, j + q));
            own.of[p] = own.of[p] + corner * t.of[q];
            s.of[q] = s.of[q] + product<true>(corner, number<V>(x[j + p]));
        }
    }

    const Rows shared = shared_rows<columns>(a, j);
    add_and_dot_columns<true>(shared.count, columns_from<columns>(a, shared.first, j), t,
                              x.from(shared.first), y.from(shared.first), s);
    if constexpr (columns > 1)
        for (int q = 0; q < columns; ++q) {
            Rows alone = stored_rows(a, j + q);
            const int behind = alone.first + alone.count; // the first row behind the stored ones
            if (!a.upper) alone.first = shared.first + shared.count;
            alone.count = (a.upper ? shared.first : behind) - alone.first;
            const Numbers<1, V> tq = {t.of[q]};
            Numbers<1, V> sq = {s.of[q]};
            add_and_dot_columns<true>(alone.count, columns_from<1>(a, alone.first, j + q), tq,
                                      x.from(alone.first), y.from(alone.first), sq);
            s.of[q] = sq.of[0];
        }

    for (int q = 0; q < columns; ++q)
        y[j + q] = element<T>(number<V>(y[j + q]) + own.of[q] + scale * s.of[q]);
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
