// The inner loops of Level 2 for float with neighbouring elements, 4 of them at a time: overloads of those in
// columns.h. Every operation rounds; where a column starts against a 16-byte boundary decides which of its
// elements go singly.
#pragma once

#include "arith/lanes.h"
#include "arith/prefetch.h"
#include "blas/kernel/columns.h"

namespace vor::blas {

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

} // namespace vor::blas
