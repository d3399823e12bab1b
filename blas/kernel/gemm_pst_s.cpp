// Post-passes of sgemm in single precision, those with an untransposed B: C(i, j) := alpha * sum +
// C(i, j), contract in gemm_kernels.h.
//
// Every product, sum and update is rounded. A sum takes its terms in ascending order of l, from 0,
// unless A is transposed and k is at least kAlongK: then both operands run contiguously along l, and
// four partial sums, one for each l mod 4 counted from the first aligned element, are combined at the
// end as (0 + 2) + (1 + 3). Terms ahead of that element and behind the last full vector enter the
// partial sum 0, 1 or 2 of their position.
#include "arith/lanes.h"
#include "blas/kernel/gemm_kernels.h"
#include "blas/kernel/gemm_lanes.h"
#include "blas/kernel/gemm_operand.h"
#include "serv/entry.h"

#include <algorithm>
#include <stdint.h>

namespace vor::blas {
namespace {

constexpr int kAlongK = 11; // from here vectors along l pay for their start and end

inline void update(__m128 sum, float alpha, float* c) {
    store<false>(c, _mm_add_ps(_mm_mul_ps(sum, _mm_set1_ps(alpha)), load<false>(c)));
}

inline void update(float sum, float alpha, float* c) {
    *c = sum * alpha + *c;
}

// Visits n columns, S at a time, then one by one: work.template operator()<S>(j).
template <int S, class F>
inline void by_columns(int n, F work) {
    int j = 0;
    for (; j + S <= n; j += S) work.template operator()<S>(j);
    for (; j < n; ++j) work.template operator()<1>(j);
}

// ---- One row.

template <int S>
[[gnu::noinline]] void row(int k, float alpha, Operand<float> a, Operand<float> b, float* c,
                           int ldc) {
    float sum[S] = {};
    for (int l = 0; l < k; ++l, ++b.at)
#pragma GCC unroll 4
        for (int s = 0; s < S; ++s) sum[s] += a(0, l) * b(0, s);
#pragma GCC unroll 4
    for (int s = 0; s < S; ++s) update(sum[s], alpha, c + s * ldc);
}

void rows(int m, int n, int k, float alpha, Operand<float> a, Operand<float> b, float* c, int ldc) {
    for (int i = 0; i < m; ++i)
        by_columns<4>(n, [&]<int S>(int j) {
            row<S>(k, alpha, a.from(i, 0), b.from(0, j), c + i + j * ldc, ldc);
        });
}

// ---- A as stored: a vector holds four rows.

template <int V, int S>
[[gnu::noinline]] void tile_down(int k, float alpha, Operand<float> a, Operand<float> b, float* c,
                                 int ldc) {
    __m128 sum[S][V];
    for (auto& column : sum)
        for (auto& x : column) x = _mm_setzero_ps();
    for (int l = 0; l < k; ++l, a.at += a.column, ++b.at)
#pragma GCC unroll 4
        for (int s = 0; s < S; ++s) {
            const __m128 y = _mm_set1_ps(b(0, s));
#pragma GCC unroll 4
            for (int v = 0; v < V; ++v)
                sum[s][v] = _mm_add_ps(sum[s][v], _mm_mul_ps(load<false>(a.at + 4 * v), y));
        }
#pragma GCC unroll 4
    for (int s = 0; s < S; ++s)
#pragma GCC unroll 4
        for (int v = 0; v < V; ++v) update(sum[s][v], alpha, c + 4 * v + s * ldc);
}

void down(int m, int n, int k, float alpha, Operand<float> a, Operand<float> b, float* c, int ldc) {
    int i = 0;
    const auto tiles = [&]<int V, int S>() {
        by_columns<S>(n, [&]<int T>(int j) {
            tile_down<V, T>(k, alpha, a.from(i, 0), b.from(0, j), c + i + j * ldc, ldc);
        });
        i += 4 * V;
    };
    while (i + 16 <= m) tiles.template operator()<4, 1>();
    while (i + 8 <= m) tiles.template operator()<2, 2>();
    while (i + 4 <= m) tiles.template operator()<1, 4>();
    rows(m - i, n, k, alpha, a.from(i, 0), b, c + i, ldc);
}

// ---- A transposed, few steps: a vector holds the same step of four rows.

template <int S>
inline void tile_gathered(int k, float alpha, Operand<float> a, Operand<float> b, float* c,
                          int ldc) {
    __m128 sum[S];
    for (auto& x : sum) x = _mm_setzero_ps();
    const auto step = [&](__m128 x, int l) {
#pragma GCC unroll 2
        for (int s = 0; s < S; ++s)
            sum[s] = _mm_add_ps(sum[s], _mm_mul_ps(x, _mm_set1_ps(b(l, s))));
    };
    int l = 0;
    for (; l + 4 <= k; l += 4) {
        __m128 x0 = load<false>(&a(0, l)), x1 = load<false>(&a(1, l));
        __m128 x2 = load<false>(&a(2, l)), x3 = load<false>(&a(3, l));
        _MM_TRANSPOSE4_PS(x0, x1, x2, x3);
        step(x0, l);
        step(x1, l + 1);
        step(x2, l + 2);
        step(x3, l + 3);
    }
    for (; l < k; ++l) step(_mm_setr_ps(a(0, l), a(1, l), a(2, l), a(3, l)), l);
#pragma GCC unroll 2
    for (int s = 0; s < S; ++s) update(sum[s], alpha, c + s * ldc);
}

// ---- A transposed, many steps: a vector holds four steps of one element.

// Four sums over x[l] * y(r)[l], y(r) = y + r * step; x is the stream that is aligned.
inline __m128 dots(int k, const float* x, const float* y, int step) {
    __m128 sum[4];
    for (auto& s : sum) s = _mm_setzero_ps();
    const auto add_single = [&](int l) {
        const __m128 factor = _mm_load_ss(x + l);
#pragma GCC unroll 4
        for (int r = 0; r < 4; ++r)
            sum[r] = _mm_add_ss(sum[r], _mm_mul_ss(_mm_load_ss(y + r * step + l), factor));
    };
    const int ahead = static_cast<int>((0 - reinterpret_cast<uintptr_t>(x)) / sizeof(float) % 4);
    int l = 0;
    for (; l < ahead; ++l) add_single(l);
    for (; l + 4 <= k; l += 4) {
        const __m128 factor = load<true>(x + l);
#pragma GCC unroll 4
        for (int r = 0; r < 4; ++r)
            sum[r] = _mm_add_ps(sum[r], _mm_mul_ps(load<false>(y + r * step + l), factor));
    }
    for (; l < k; ++l) add_single(l);
    return sums_of_lanes(sum[0], sum[1], sum[2], sum[3]);
}

void across(int m, int n, int k, float alpha, Operand<float> a, Operand<float> b, float* c,
            int ldc) {
    const int fours = m & ~3;
    for (int i = 0; i < fours; i += 4) {
        const auto four = a.from(i, 0);
        if (k >= kAlongK)
            for (int j = 0; j < n; ++j)
                update(dots(k, &b(0, j), four.at, a.row), alpha, c + i + j * ldc);
        else
            by_columns<2>(n, [&]<int S>(int j) {
                tile_gathered<S>(k, alpha, four, b.from(0, j), c + i + j * ldc, ldc);
            });
    }
    if (fours == m) return;
    if (k < kAlongK) return rows(m - fours, n, k, alpha, a.from(fours, 0), b, c + fours, ldc);
    for (int i = fours; i < m; ++i)
        for (int j = 0; j < n; j += 4) {
            // Fewer than four columns left: the last one again, its sums not used.
            const int count = std::min(4, n - j);
            float sum[4];
            if (count == 4)
                store<false>(sum, dots(k, &a(i, 0), &b(0, j), b.column));
            else
                for (int s = 0; s < count; ++s)
                    _mm_store_ss(sum + s, dots(k, &a(i, 0), &b(0, j + s), 0));
            for (int s = 0; s < count; ++s) update(sum[s], alpha, c + i + (j + s) * ldc);
        }
}

} // namespace

#define POST(name, way, op_a)                                                                      \
    VOR_ENGINE void name PARAMS_GEMM_POST(float) {                                                 \
        way(*m, *n, *k, *alpha, Operand<float>(Op::op_a, a, *lda),                                 \
            Operand<float>(Op::plain, b, *ldb), c, *ldc);                                          \
    }
POST(vor_blas_spst_nnk, down, plain)
POST(vor_blas_spst_tnk, across, transposed)

} // namespace vor::blas
