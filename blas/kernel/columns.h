// The inner loops of Level 2, along `columns` columns of A side by side, for any type and step. Each element
// of A is read once. V is the arithmetic (arith/number.h); a result is rounded where it is stored, and the
// products of a row come in the order of the columns.
//
// Columns are pointers to their first row; x and y are vectors from the same row on. `Order` is that of
// the rows: a sweep whose steps wait for each other meets the rows next to it in time. The forms for
// float with neighbouring elements, which work 4 elements at a time, are in columns_s.h.
#pragma once

#include "arith/number.h"
#include "arith/walk.h"

namespace vor::blas {

enum class Order { down, up };

// The k-th of some rows.
template <Order order>
constexpr int row_of(int k, int rows) {
    return order == Order::down ? k : rows - 1 - k;
}

template <int columns, class T>
struct Columns {
    const T* first[columns];

    // Columns that lie `distance` elements apart.
    static Columns spaced(const T* a, int distance) {
        Columns result;
#pragma GCC unroll 4
        for (int q = 0; q < columns; ++q) result.first[q] = a + q * distance;
        return result;
    }
    // The same columns from row i on.
    Columns from(int i) const {
        Columns result;
#pragma GCC unroll 4
        for (int q = 0; q < columns; ++q) result.first[q] = first[q] + i;
        return result;
    }
};

// One number for each of some columns.
template <int columns, class V>
struct Numbers {
    V of[columns] = {};
};

// sum += a x or conj(a) x
template <bool conjugate>
[[gnu::always_inline]] inline void accumulate_product(cextended& sum, const cdouble& a,
                                                      const cdouble& x) {
    if constexpr (conjugate) {
        accumulate_sum(sum.re, a.re, x.re, a.im, x.im);
        accumulate_difference(sum.im, a.re, x.im, a.im, x.re);
    } else {
        accumulate_difference(sum.re, a.re, x.re, a.im, x.im);
        accumulate_sum(sum.im, a.re, x.im, a.im, x.re);
    }
}

// y[i] += t[0] a[0][i] + t[1] a[1][i] + ..., rounded once
template <Order order = Order::down, int columns, class T, class V, class Y>
[[gnu::always_inline]] inline void add_columns(int rows, const Columns<columns, T>& a,
                                               const Numbers<columns, V>& t, Y y) {
#pragma GCC unroll 4
    for (int k = 0; k < rows; ++k) {
        const int i = row_of<order>(k, rows);
        V sum = factor<V>(a.first[0][i]) * t.of[0] + number<V>(y[i]);
#pragma GCC unroll 4
        for (int q = 1; q < columns; ++q) sum = sum + factor<V>(a.first[q][i]) * t.of[q];
        y[i] = element<T>(sum);
    }
}

// The same for two complex columns in extended precision: real parts, then imaginary parts, so that the
// four factors of a pass stay on the x87 stack.
template <Order order = Order::down, class T, class Y>
[[gnu::always_inline]] inline void add_columns(int rows, const Columns<2, T>& a,
                                               const Numbers<2, cextended>& t, Y y) {
    const auto add = [&](auto part, cextended u, cextended v) {
        const T *const p = a.first[0], *const q = a.first[1];
#pragma GCC unroll 2
        for (int i = 0; i < rows; ++i)
            y[i].*part = static_cast<real_t<T>>(
                factor<extended>(p[i].re) * u.re + y[i].*part + factor<extended>(p[i].im) * u.im +
                factor<extended>(q[i].re) * v.re + factor<extended>(q[i].im) * v.im);
    };
    add(&T::re, {t.of[0].re, -t.of[0].im}, {t.of[1].re, -t.of[1].im});
    add(&T::im, {t.of[0].im, t.of[0].re}, {t.of[1].im, t.of[1].re});
}

// sum[r] += x[r].part * f. A double is read again for each row, so that the stack is left to the sums.
template <int rows, class T>
[[gnu::always_inline]] inline void accumulate_rows(extended (&sum)[rows], const T* x,
                                                   real_t<T> T::*part, const double& f) {
#pragma GCC unroll 8
    for (int r = 0; r < rows; ++r) accumulate(sum[r], x[r].*part, f);
}
template <int rows, class T>
[[gnu::always_inline]] inline void accumulate_rows(extended (&sum)[rows], const T* x,
                                                   real_t<T> T::*part, const extended& f) {
    const extended factor = reloaded(f);
#pragma GCC unroll 8
    for (int r = 0; r < rows; ++r) accumulate(sum[r], x[r].*part, factor);
}

// One part of `rows` elements of y, from row i on.
template <int rows, int columns, class T, class F, class Y>
[[gnu::always_inline]] inline void add_rows(const Columns<columns, T>& a, int i,
                                            const Complex<F> (&f)[columns], Y y,
                                            real_t<T> T::*part) {
    extended sum[rows];
#pragma GCC unroll 8
    for (int r = 0; r < rows; ++r) sum[r] = y[i + r].*part;
#pragma GCC unroll 4
    for (int q = 0; q < columns; ++q) {
        accumulate_rows(sum, a.first[q] + i, &T::re, f[q].re);
        accumulate_rows(sum, a.first[q] + i, &T::im, f[q].im);
    }
#pragma GCC unroll 8
    for (int r = 0; r < rows; ++r) y[i + r].*part = static_cast<real_t<T>>(sum[r]);
}

// Complex columns whose factors have no room on the x87 stack: tiles of rows whose sums have it.
template <int columns, class T, class F, class Y>
void add_columns_in_tiles(int rows, const Columns<columns, T>& a,
                          const Numbers<columns, Complex<F>>& t, Y y) {
    constexpr int kTile = std::is_same_v<F, double> ? 6 : 5; // a factor on the stack takes a place
    Complex<F> re[columns], im[columns]; // what each part of a sum takes of the parts of A
    for (int q = 0; q < columns; ++q) {
        re[q] = {t.of[q].re, -t.of[q].im};
        im[q] = {t.of[q].im, t.of[q].re};
    }
    int i = 0;
    const auto add = [&]<int count>(std::integral_constant<int, count>) {
        for (; rows - i >= count; i += count) {
            add_rows<count>(a, i, re, y, &T::re);
            add_rows<count>(a, i, im, y, &T::im);
        }
    };
    add(std::integral_constant<int, kTile>{});
    add(std::integral_constant<int, kTile / 2>{});
    add(std::integral_constant<int, 1>{});
}

// s[q] += sum of a[q][i] x[i]
template <bool conjugate, Order order = Order::down, int columns, class T, class V, class X>
[[gnu::always_inline]] inline void dot_columns(int rows, const Columns<columns, T>& a, X x,
                                               Numbers<columns, V>& s) {
    if constexpr (columns > 1 && std::is_same_v<V, cextended>) {
        // One sum of complex elements fills the x87 stack.
        for (int q = 0; q < columns; ++q) {
            Numbers<1, V> sum = {s.of[q]};
            dot_columns<conjugate, order>(rows, Columns<1, T>{a.first[q]}, x, sum);
            s.of[q] = sum.of[0];
        }
        return;
    }
    Numbers<columns, V> sums = s;
#pragma GCC unroll 4
    for (int k = 0; k < rows; ++k) {
        const int i = row_of<order>(k, rows);
        const V xi = number<V>(x[i]);
#pragma GCC unroll 4
        for (int q = 0; q < columns; ++q)
            sums.of[q] = sums.of[q] + product<conjugate>(factor<V>(a.first[q][i]), xi);
    }
    s = sums;
}

// The same for the short columns of a band, in any number of partial sums: here as many as dot_columns has.
template <bool conjugate, Order order = Order::down, int columns, class T, class V, class X>
[[gnu::always_inline]] inline void dot_band_columns(int rows, const Columns<columns, T>& a, X x,
                                                    Numbers<columns, V>& s) {
    dot_columns<conjugate, order>(rows, a, x, s);
}

// In double precision four sums in all, so that no addition waits for the one before it: row k, counted in
// the order of the rows, goes to sum k mod 4, or of two columns to sum k mod 2. What is left behind the last
// whole round goes to the first sum. They are added as (p0 + p2) + (p1 + p3), and to what was there. Below
// kLeastInParts rows the additions at the end cost more than the waiting, and there is one sum.
inline constexpr int kLeastInParts = 16;

template <bool conjugate, Order order = Order::down, class X>
[[gnu::always_inline]] inline void dot_band_columns(int rows, const Columns<1, double>& a, X x,
                                                    Numbers<1, extended>& s) {
    if (rows < kLeastInParts) return dot_columns<conjugate, order>(rows, a, x, s);
    const auto term = [&](int k) __attribute__((always_inline)) {
        const int i = row_of<order>(k, rows);
        return extended{a.first[0][i]} * x[i];
    };
    extended p0 = 0, p1 = 0, p2 = 0, p3 = 0;
    int k = 0;
    for (; k + 4 <= rows; k += 4) {
        p0 += term(k);
        p1 += term(k + 1);
        p2 += term(k + 2);
        p3 += term(k + 3);
    }
    for (; k < rows; ++k) p0 += term(k);
    s.of[0] += (p0 + p2) + (p1 + p3);
}
template <bool conjugate, Order order = Order::down, class X>
[[gnu::always_inline]] inline void dot_band_columns(int rows, const Columns<2, double>& a, X x,
                                                    Numbers<2, extended>& s) {
    if (rows < kLeastInParts) return dot_columns<conjugate, order>(rows, a, x, s);
    const auto term = [&](int q, int k) __attribute__((always_inline)) {
        const int i = row_of<order>(k, rows);
        return extended{a.first[q][i]} * x[i];
    };
    extended p0 = 0, p1 = 0, q0 = 0, q1 = 0;
    int k = 0;
    for (; k + 2 <= rows; k += 2) {
        p0 += term(0, k);
        q0 += term(1, k);
        p1 += term(0, k + 1);
        q1 += term(1, k + 1);
    }
    if (k < rows) {
        p0 += term(0, k);
        q0 += term(1, k);
    }
    s.of[0] += p0 + p1;
    s.of[1] += q0 + q1;
}

// Both at once: y[i] += t[0] a[0][i] + ..., s[q] += sum of a[q][i] x[i], the latter conjugated if asked.
template <bool conjugate, int columns, class T, class V, class X, class Y>
[[gnu::always_inline]] inline void add_and_dot_columns(int rows, const Columns<columns, T>& a,
                                                       const Numbers<columns, V>& t, X x, Y y,
                                                       Numbers<columns, V>& s) {
    for (int i = 0; i < rows; ++i) {
        const V xi = number<V>(x[i]);
        V sum = number<V>(y[i]);
#pragma GCC unroll 4
        for (int q = 0; q < columns; ++q) {
            const V aqi = number<V>(a.first[q][i]);
            s.of[q] = s.of[q] + product<conjugate>(aqi, xi);
            sum = sum + product<false>(aqi, t.of[q]);
        }
        y[i] = element<T>(sum);
    }
}

// The same in double precision. Four sums and four factors fill the x87 stack: they go by turns, in tiles
// that stay in the cache.
template <bool conjugate, int columns, class X, class Y>
[[gnu::always_inline]] inline void add_and_dot_columns(int rows, const Columns<columns, double>& a,
                                                       const Numbers<columns, extended>& t, X x,
                                                       Y y, Numbers<columns, extended>& s) {
    if constexpr (columns > 2) {
        constexpr int kTile = 64;
        for (int i = 0; i < rows; i += kTile) {
            const int count = rows - i < kTile ? rows - i : kTile;
            dot_columns<conjugate>(count, a.from(i), x.from(i), s);
            add_columns(count, a.from(i), t, y.from(i));
        }
    } else {
        const Numbers<columns, extended> factors = t;
        Numbers<columns, extended> sums = s;
#pragma GCC unroll 4
        for (int i = 0; i < rows; ++i) {
#pragma GCC unroll 4
            for (int q = 0; q < columns; ++q) accumulate(sums.of[q], a.first[q][i], x[i]);
            extended sum = loaded(a.first[0][i]) * factors.of[0] + y[i];
#pragma GCC unroll 4
            for (int q = 1; q < columns; ++q) sum += loaded(a.first[q][i]) * factors.of[q];
            y[i] = static_cast<double>(sum);
        }
        s = sums;
    }
}

// The same for one complex column: two sums, two factors and two products fill the stack.
template <bool conjugate, class X, class Y>
[[gnu::always_inline]] inline void add_and_dot_columns(int rows, const Columns<1, cdouble>& a,
                                                       const Numbers<1, cextended>& t, X x, Y y,
                                                       Numbers<1, cextended>& s) {
    const cextended f = t.of[0];
    cextended sum = s.of[0];
#pragma GCC unroll 2
    for (int i = 0; i < rows; ++i) {
        const cdouble& ai = a.first[0][i];
        accumulate_product<conjugate>(sum, ai, x[i]);
        add_difference(y[i].re, ai.re, f.re, ai.im, f.im);
        add_sum(y[i].im, ai.re, f.im, ai.im, f.re);
    }
    s.of[0] = sum;
}

// The same for two or four complex columns, whose factors and sums have no room on the stack together: by
// tiles that stay in the cache, and in pairs of columns, after each of which y is rounded.
template <bool conjugate, int columns, class X, class Y>
[[gnu::always_inline]] inline void add_and_dot_columns(int rows, const Columns<columns, cdouble>& a,
                                                       const Numbers<columns, cextended>& t, X x,
                                                       Y y, Numbers<columns, cextended>& s) {
    constexpr int kTile = 256;
    for (int i = 0; i < rows; i += kTile) {
        const int count = rows - i < kTile ? rows - i : kTile;
        for (int q = 0; q < columns; q += 2) {
            Columns<2, cdouble> pair;
            Numbers<2, cextended> factors;
            for (int p = 0; p < 2; ++p) {
                pair.first[p] = a.first[q + p] + i;
                factors.of[p] = t.of[q + p];
                Numbers<1, cextended> sum = {s.of[q + p]};
                dot_columns<conjugate>(count, Columns<1, cdouble>{pair.first[p]}, x.from(i), sum);
                s.of[q + p] = sum.of[0];
            }
            add_columns(count, pair, factors, y.from(i));
        }
    }
}

// a[i] += t x[i]; a is a column or a vector.
template <class A, class V, class X>
[[gnu::always_inline]] inline void update_column(int rows, A a, V t, X x) {
    using T = typename X::Element;
#pragma GCC unroll 4
    for (int i = 0; i < rows; ++i)
        a[i] = element<T>(product<false>(factor<V>(x[i]), t) + number<V>(a[i]));
}

// a[i] += t x[i] + u y[i]
template <class T, class V, class X, class Y>
[[gnu::always_inline]] inline void update_column(int rows, T* a, V t, X x, V u, Y y) {
#pragma GCC unroll 2
    for (int i = 0; i < rows; ++i)
        a[i] = element<T>(product<false>(factor<V>(x[i]), t) + number<V>(a[i]) +
                          product<false>(factor<V>(y[i]), u));
}

// Two columns that share x and y: a[i] += t[0] x[i] + t[1] y[i], b[i] with u.
template <class T, class V, class X, class Y>
[[gnu::always_inline]] inline void update_columns(int rows, T* a, const Numbers<2, V>& t, T* b,
                                                  const Numbers<2, V>& u, X x, Y y) {
#pragma GCC unroll 2
    for (int i = 0; i < rows; ++i) {
        const V xi = number<V>(x[i]), yi = number<V>(y[i]);
        a[i] = element<T>(xi * t.of[0] + number<V>(a[i]) + yi * t.of[1]);
        b[i] = element<T>(xi * u.of[0] + number<V>(b[i]) + yi * u.of[1]);
    }
}

// The same for complex elements in extended precision: real parts, then imaginary parts, so that the four
// factors of a pass stay on the x87 stack.
template <class T, class X, class Y>
[[gnu::always_inline]] inline void update_column(int rows, T* a, cextended t, X x, cextended u,
                                                 Y y) {
    const auto update_part = [&](auto part, cextended v, cextended w) {
#pragma GCC unroll 2
        for (int i = 0; i < rows; ++i)
            a[i].*part = static_cast<real_t<T>>(
                factor<extended>(x[i].re) * v.re + factor<extended>(x[i].im) * v.im + a[i].*part +
                (factor<extended>(y[i].re) * w.re + factor<extended>(y[i].im) * w.im));
    };
    update_part(&T::re, {t.re, -t.im}, {u.re, -u.im});
    update_part(&T::im, {t.im, t.re}, {u.im, u.re});
}

} // namespace vor::blas
