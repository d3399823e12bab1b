// The inner loops of Level 2, along `columns` columns of A side by side. Each element of A is read
// once. V is the arithmetic (arith/number.h); a result is rounded where it is stored, and the
// products of a row come in the order of the columns.
//
// Columns are pointers to their first row; x and y are vectors from the same row on. `Order` is that of
// the rows: a sweep whose steps wait for each other meets the rows next to it in time. The forms for
// float with neighbouring elements, at the end, work 4 elements at a time.
#pragma once

#include "arith/lanes.h"
#include "arith/prefetch.h"
#include "blas/level2/vector.h"

namespace vor {

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

// ---- Any type, any step ------------------------------------------------------------------------

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
[[gnu::always_inline]] inline void add_part(int rows, const T* a, const T* b,
                                            Complex<long double> u, Complex<long double> v,
                                            From from, To to) {
#pragma GCC unroll 2
    for (int i = 0; i < rows; ++i)
        to(i) = static_cast<std::remove_reference_t<decltype(to(i))>>(
            factor<long double>(a[i].re) * u.re + from(i) + factor<long double>(a[i].im) * u.im +
            factor<long double>(b[i].re) * v.re + factor<long double>(b[i].im) * v.im);
}

// The same for complex columns in extended precision, two or four: real parts, then imaginary parts.
template <Order order = Order::down, int columns, class T, class Y>
requires(columns > 1)
    [[gnu::always_inline]] inline void add_columns(int rows, const Columns<columns, T>& a,
                                                   const Numbers<columns, Complex<long double>>& t,
                                                   Y y) {
    constexpr int kTile = columns > 2 ? 16 : 1 << 30; // rows whose sums of two columns wait
    const auto first_pair = [&](int i, int count, auto u, auto from, auto to) {
        add_part(count, a.first[0] + i, a.first[1] + i, u(0), u(1), from, to);
    };
    const auto tile = [&](int i, int count, auto part, auto u) {
        const auto element = [&](int k) -> real_t<T>& { return y[i + k].*part; };
        if constexpr (columns == 2) {
            first_pair(i, count, u, element, element);
        } else {
            long double sum[kTile];
            const auto waiting = [&](int k) -> long double& { return sum[k]; };
            first_pair(i, count, u, element, waiting);
            add_part(count, a.first[2] + i, a.first[3] + i, u(2), u(3), waiting, element);
        }
    };
    for (int i = 0; i < rows; i += kTile) {
        const int count = rows - i < kTile ? rows - i : kTile;
        tile(i, count, &T::re, [&](int q) {
            return Complex<long double>{t.of[q].re, -t.of[q].im};
        });
        tile(i, count, &T::im, [&](int q) { return Complex<long double>{t.of[q].im, t.of[q].re}; });
    }
}

// s[q] += sum of a[q][i] x[i]
template <bool conjugate, Order order = Order::down, int columns, class T, class V, class X>
[[gnu::always_inline]] inline void dot_columns(int rows, const Columns<columns, T>& a, X x,
                                               Numbers<columns, V>& s) {
    if constexpr (columns > 1 && std::is_same_v<V, Complex<long double>>) {
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
[[gnu::always_inline]] inline void
add_and_dot_columns(int rows, const Columns<columns, T>& a,
                    const Numbers<columns, Complex<long double>>& t, X x, Y y,
                    Numbers<columns, Complex<long double>>& s) {
    constexpr int kTile = 32, kPair = columns > 1 ? 2 : 1;
    for (int i = 0; i < rows; i += kTile) {
        const int count = rows - i < kTile ? rows - i : kTile;
        for (int q = 0; q < columns; q += kPair) {
            Columns<kPair, T> pair;
            Numbers<kPair, Complex<long double>> factors;
            for (int p = 0; p < kPair; ++p) {
                pair.first[p] = a.first[q + p] + i;
                factors.of[p] = t.of[q + p];
                Numbers<1, Complex<long double>> sum = {s.of[q + p]};
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
[[gnu::always_inline]] inline void update_column(int rows, T* a, Complex<long double> t, X x,
                                                 Complex<long double> u, Y y) {
    const auto update_part = [&](auto part, Complex<long double> v, Complex<long double> w) {
#pragma GCC unroll 2
        for (int i = 0; i < rows; ++i)
            a[i].*part = static_cast<real_t<T>>(
                factor<long double>(x[i].re) * v.re + factor<long double>(x[i].im) * v.im +
                a[i].*part +
                (factor<long double>(y[i].re) * w.re + factor<long double>(y[i].im) * w.im));
    };
    update_part(&T::re, {t.re, -t.im}, {u.re, -u.im});
    update_part(&T::im, {t.im, t.re}, {u.im, u.re});
}

// ---- float, neighbours -------------------------------------------------------------------------

// one(i) for single rows, eight(i, aligned) for rows i to i+7: in vectors from the first row on where
// the column stands on a 16-byte boundary. `aligned` tells whether the other streams stand on one too.
// Short columns, and columns that never meet a boundary, go row by row.
template <class One, class Eight>
[[gnu::always_inline]] inline void in_vectors(int rows, const float* column, unsigned others,
                                              One one, Eight eight) {
    constexpr int kShort = 11; // below this the start on a boundary costs more than it brings
    const unsigned off = reinterpret_cast<unsigned>(column) % 16;
    int i = 0;
    if (rows >= kShort && off % sizeof(float) == 0) {
        for (const int head = (16 - off) % 16 / sizeof(float); i < head; ++i) one(i);
        if ((others + 4u * static_cast<unsigned>(i)) % 16 == 0)
            for (; i + 8 <= rows; i += 8) eight(i, std::true_type{});
        else
            for (; i + 8 <= rows; i += 8) eight(i, std::false_type{});
    }
    for (; i < rows; ++i) one(i);
}

template <class Aligned>
__m128 load4(const float* p, Aligned) {
    return Aligned::value ? _mm_load_ps(p) : _mm_loadu_ps(p);
}
template <class Aligned>
void store4(float* p, __m128 x, Aligned) {
    Aligned::value ? _mm_store_ps(p, x) : _mm_storeu_ps(p, x);
}

// The position of two streams against the boundaries: that of both if it is the same, or none.
inline unsigned common_position(const float* x, const float* y) {
    const auto at = reinterpret_cast<unsigned>(x), other = reinterpret_cast<unsigned>(y);
    return (at - other) % 16 == 0 ? at : 1;
}

// The first column is the one that stands on a boundary, the others are where they are.
template <int columns>
[[gnu::always_inline]] inline __m128 load_column(const Columns<columns, float>& a, int q, int i) {
    return q == 0 ? _mm_load_ps(a.first[0] + i) : _mm_loadu_ps(a.first[q] + i);
}

template <Order = Order::down, int columns>
void add_columns(int rows, const Columns<columns, float>& a, const Numbers<columns, float>& t,
                 Vector<float, Unit> y) {
    float* const to = y.first;
    in_vectors(
        rows, a.first[0], reinterpret_cast<unsigned>(to),
        [&](int i) {
            float sum = a.first[0][i] * t.of[0] + to[i];
            for (int q = 1; q < columns; ++q) sum += a.first[q][i] * t.of[q];
            to[i] = sum;
        },
        [&](int i, auto aligned) {
            prefetch_once(a.first[0] + i, 64);
            prefetch_once(to + i, 64);
            __m128 low = load4(to + i, aligned), high = load4(to + i + 4, aligned);
#pragma GCC unroll 4
            for (int q = 0; q < columns; ++q) {
                const __m128 tq = _mm_set1_ps(t.of[q]);
                low = _mm_add_ps(low, _mm_mul_ps(load_column(a, q, i), tq));
                high = _mm_add_ps(high, _mm_mul_ps(load_column(a, q, i + 4), tq));
            }
            store4(to + i, low, aligned);
            store4(to + i + 4, high, aligned);
        });
}

template <bool conjugate, Order = Order::down, int columns>
void dot_columns(int rows, const Columns<columns, float>& a, Vector<const float, Unit> x,
                 Numbers<columns, float>& s) {
    __m128 low[columns], high[columns];
    for (int q = 0; q < columns; ++q) low[q] = high[q] = _mm_setzero_ps();
    in_vectors(
        rows, a.first[0], reinterpret_cast<unsigned>(x.first),
        [&](int i) {
            for (int q = 0; q < columns; ++q) s.of[q] += a.first[q][i] * x[i];
        },
        [&](int i, auto aligned) {
            prefetch_once(a.first[0] + i, 64);
            const __m128 x0 = load4(x.first + i, aligned), x1 = load4(x.first + i + 4, aligned);
#pragma GCC unroll 4
            for (int q = 0; q < columns; ++q) {
                low[q] = _mm_add_ps(low[q], _mm_mul_ps(load_column(a, q, i), x0));
                high[q] = _mm_add_ps(high[q], _mm_mul_ps(load_column(a, q, i + 4), x1));
            }
        });
    for (int q = 0; q < columns; ++q) s.of[q] += sum_of_neighbours(_mm_add_ps(low[q], high[q]));
}

template <bool conjugate, int columns>
void add_and_dot_columns(int rows, const Columns<columns, float>& a,
                         const Numbers<columns, float>& t, Vector<const float, Unit> x,
                         Vector<float, Unit> y, Numbers<columns, float>& s) {
    __m128 lanes[columns], tq[columns];
    for (int q = 0; q < columns; ++q) {
        lanes[q] = _mm_setzero_ps();
        tq[q] = _mm_set1_ps(t.of[q]);
    }
    in_vectors(
        rows, a.first[0], common_position(x.first, y.first),
        [&](int i) {
            float sum = y[i];
            for (int q = 0; q < columns; ++q) {
                s.of[q] += a.first[q][i] * x[i];
                sum += a.first[q][i] * t.of[q];
            }
            y[i] = sum;
        },
        [&](int i, auto aligned) {
            prefetch_once(a.first[0] + i, 64);
            prefetch_once(y.first + i, 64);
            for (int k = i; k < i + 8; k += 4) {
                const __m128 xk = load4(x.first + k, aligned);
                __m128 sum = load4(y.first + k, aligned);
#pragma GCC unroll 4
                for (int q = 0; q < columns; ++q) {
                    const __m128 aqk = load_column(a, q, k);
                    lanes[q] = _mm_add_ps(lanes[q], _mm_mul_ps(aqk, xk));
                    sum = _mm_add_ps(sum, _mm_mul_ps(aqk, tq[q]));
                }
                store4(y.first + k, sum, aligned);
            }
        });
    for (int q = 0; q < columns; ++q) s.of[q] += sum_of_neighbours(lanes[q]);
}

inline void update_column(int rows, float* a, float t, Vector<const float, Unit> x) {
    in_vectors(
        rows, a, reinterpret_cast<unsigned>(x.first), [&](int i) { a[i] += t * x[i]; },
        [&](int i, auto aligned) {
            prefetch_once(a + i, 64);
            prefetch_once(x.first + i, 64);
            const __m128 t4 = _mm_set1_ps(t);
            for (int k = i; k < i + 8; k += 4)
                _mm_store_ps(a + k, _mm_add_ps(_mm_load_ps(a + k),
                                               _mm_mul_ps(load4(x.first + k, aligned), t4)));
        });
}

inline void update_column(int rows, float* a, float t, Vector<const float, Unit> x, float u,
                          Vector<const float, Unit> y) {
    in_vectors(
        rows, a, common_position(x.first, y.first),
        [&](int i) { a[i] = t * x[i] + a[i] + u * y[i]; },
        [&](int i, auto aligned) {
            prefetch_once(a + i, 64);
            const __m128 t4 = _mm_set1_ps(t), u4 = _mm_set1_ps(u);
            for (int k = i; k < i + 8; k += 4) {
                const __m128 first = _mm_mul_ps(load4(x.first + k, aligned), t4);
                const __m128 second = _mm_mul_ps(load4(y.first + k, aligned), u4);
                _mm_store_ps(a + k, _mm_add_ps(_mm_add_ps(first, _mm_load_ps(a + k)), second));
            }
        });
}

} // namespace vor
