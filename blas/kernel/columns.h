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
};

// One number for each of some columns.
template <int columns, class V>
struct Numbers {
    V of[columns] = {};
};

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

// to(i) := from(i) + u.re a[i].re + u.im a[i].im + v.re b[i].re + v.im b[i].im: one part of the elements of
// two complex columns, with four factors that stay on the x87 stack.
template <class T, class From, class To>
[[gnu::always_inline]] inline void add_part(int rows, const T* a, const T* b, cextended u,
                                            cextended v, From from, To to) {
#pragma GCC unroll 2
    for (int i = 0; i < rows; ++i)
        to(i) = static_cast<std::remove_reference_t<decltype(to(i))>>(
            factor<extended>(a[i].re) * u.re + from(i) + factor<extended>(a[i].im) * u.im +
            factor<extended>(b[i].re) * v.re + factor<extended>(b[i].im) * v.im);
}

// The same for complex columns in extended precision, two or four: real parts, then imaginary parts.
template <Order order = Order::down, int columns, class T, class Y>
requires(columns > 1)
    [[gnu::always_inline]] inline void add_columns(int rows, const Columns<columns, T>& a,
                                                   const Numbers<columns, cextended>& t, Y y) {
    constexpr int kTile = columns > 2 ? 16 : 1 << 30; // rows whose sums of two columns wait
    const auto first_pair = [&](int i, int count, auto u, auto from, auto to) {
        add_part(count, a.first[0] + i, a.first[1] + i, u(0), u(1), from, to);
    };
    const auto tile = [&](int i, int count, auto part, auto u) {
        const auto element = [&](int k) -> real_t<T>& { return y[i + k].*part; };
        if constexpr (columns == 2) {
            first_pair(i, count, u, element, element);
        } else {
            extended sum[kTile];
            const auto waiting = [&](int k) -> extended& { return sum[k]; };
            first_pair(i, count, u, element, waiting);
            add_part(count, a.first[2] + i, a.first[3] + i, u(2), u(3), waiting, element);
        }
    };
    for (int i = 0; i < rows; i += kTile) {
        const int count = rows - i < kTile ? rows - i : kTile;
        tile(i, count, &T::re, [&](int q) { return cextended{t.of[q].re, -t.of[q].im}; });
        tile(i, count, &T::im, [&](int q) { return cextended{t.of[q].im, t.of[q].re}; });
    }
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
#pragma GCC unroll 4
    for (int k = 0; k < rows; ++k) {
        const int i = row_of<order>(k, rows);
        const V xi = number<V>(x[i]);
#pragma GCC unroll 4
        for (int q = 0; q < columns; ++q)
            s.of[q] = s.of[q] + product<conjugate>(factor<V>(a.first[q][i]), xi);
    }
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

// The same for complex columns in extended precision, whose factors and sums have no room on the x87
// stack together: by tiles that stay in the cache, and in pairs of columns, after each of which y is
// rounded.
template <bool conjugate, int columns, class T, class X, class Y>
[[gnu::always_inline]] inline void add_and_dot_columns(int rows, const Columns<columns, T>& a,
                                                       const Numbers<columns, cextended>& t, X x,
                                                       Y y, Numbers<columns, cextended>& s) {
    constexpr int kTile = 32, kPair = columns > 1 ? 2 : 1;
    for (int i = 0; i < rows; i += kTile) {
        const int count = rows - i < kTile ? rows - i : kTile;
        for (int q = 0; q < columns; q += kPair) {
            Columns<kPair, T> pair;
            Numbers<kPair, cextended> factors;
            for (int p = 0; p < kPair; ++p) {
                pair.first[p] = a.first[q + p] + i;
                factors.of[p] = t.of[q + p];
                Numbers<1, cextended> sum = {s.of[q + p]};
                dot_columns<conjugate>(count, Columns<1, T>{pair.first[p]}, x.from(i), sum);
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
