// Post-passes in extended precision, those of dgemm and zgemm and the two of sgemm with a transposed
// B: C(i, j) := alpha * sum + C(i, j), contract in gemm_kernels.h.
//
// A sum takes its terms in ascending order of l, from 0, and is rounded once, into C; of a complex term
// the products with the real part of b enter before those with its imaginary part.

// Each product is to be formed where it is written: one that waits takes the register of a sum.
#pragma GCC optimize("no-tree-ter")

#include "arith/number.h"
#include "blas/kernel/gemm_kernels.h"
#include "blas/kernel/gemm_operand.h"
#include "serv/entry.h"

namespace vor::blas {
namespace {

// ---- Extended precision: R rows and S columns of sums are live together.

template <int R, int S, class T>
inline void tile(int k, T alpha, Operand<T> a, Operand<T> b, T* c, int ldc) {
    extended sum[S][R] = {};
    for (int l = 0; l < k; ++l, a.at += a.column, b.at += b.row)
#pragma GCC unroll 4
        for (int s = 0; s < S; ++s) {
            const extended y = b(0, s);
#pragma GCC unroll 4
            for (int r = 0; r < R - 1; ++r) sum[s][r] += loaded(a(r, 0)) * y;
            sum[s][R - 1] += a(R - 1, 0) * y;
        }
#pragma GCC unroll 4
    for (int s = 0; s < S; ++s)
#pragma GCC unroll 4
        for (int r = 0; r < R; ++r)
            c[s * ldc + r] = static_cast<T>(sum[s][r] * alpha + c[s * ldc + r]);
}

// R rows, all n columns, S at a time.
template <int R, int S, class T>
void rows(int n, int k, T alpha, Operand<T> a, Operand<T> b, T* c, int ldc) {
    int j = 0;
    for (; j + S <= n; j += S) tile<R, S>(k, alpha, a, b.from(0, j), c + j * ldc, ldc);
    for (; j < n; ++j) tile<R, 1>(k, alpha, a, b.from(0, j), c + j * ldc, ldc);
}

// Four sums hide the latency of the addition.
template <class T>
void sums_of_rows(int m, int n, int k, T alpha, Operand<T> a, Operand<T> b, T* c, int ldc) {
    const int fours = m & ~3;
    for (int j = 0; j < n; ++j)
        for (int i = 0; i < fours; i += 4)
            tile<4, 1>(k, alpha, a.from(i, 0), b.from(0, j), c + i + j * ldc, ldc);
    int i = fours;
    if (m & 2) {
        rows<2, 2>(n, k, alpha, a.from(i, 0), b, c + i, ldc);
        i += 2;
    }
    if (m & 1) rows<1, 4>(n, k, alpha, a.from(i, 0), b, c + i, ldc);
}

// ---- Extended precision, complex.

// sum + a * y, or minus it.
template <bool Minus>
inline void add(extended& sum, const double& a, extended y) {
    const extended x = loaded(a) * y;
    if constexpr (Minus)
        sum -= x;
    else
        sum += x;
}

// ConjA, ConjB: whether the imaginary parts of a and b count with the other sign.
template <int R, int S, bool ConjA, bool ConjB>
inline void complex_tile(int k, cdouble alpha, Operand<cdouble> a, Operand<cdouble> b, cdouble* c,
                         int ldc) {
    extended re[S][R] = {}, im[S][R] = {};
    for (int l = 0; l < k; ++l, a.at += a.column, b.at += b.row)
#pragma GCC unroll 2
        for (int s = 0; s < S; ++s) {
            const extended yr = b(0, s).re;
#pragma GCC unroll 2
            for (int r = 0; r < R; ++r) {
                add<false>(re[s][r], a(r, 0).re, yr);
                add<ConjA>(im[s][r], a(r, 0).im, yr);
            }
            // a is loaded again: kept in a register it would cost one of the sums its own.
            asm volatile("" ::: "memory");
            const extended yi = b(0, s).im;
#pragma GCC unroll 2
            for (int r = 0; r < R; ++r) {
                add<ConjA == ConjB>(re[s][r], a(r, 0).im, yi);
                add<ConjB>(im[s][r], a(r, 0).re, yi);
            }
        }
#pragma GCC unroll 2
    for (int s = 0; s < S; ++s)
#pragma GCC unroll 2
        for (int r = 0; r < R; ++r) {
            cdouble& x = c[s * ldc + r];
            x = element<cdouble>(cextended{re[s][r], im[s][r]} * widen(alpha) + widen(x));
        }
}

// Two rows of a column, or one row of two columns, are live together: four sums.
template <bool ConjA, bool ConjB>
void complex_rows(int m, int n, int k, cdouble alpha, Operand<cdouble> a, Operand<cdouble> b,
                  cdouble* c, int ldc) {
    const int pairs = m & ~1;
    for (int j = 0; j < n; ++j)
        for (int i = 0; i < pairs; i += 2)
            complex_tile<2, 1, ConjA, ConjB>(k, alpha, a.from(i, 0), b.from(0, j), c + i + j * ldc,
                                             ldc);
    if (pairs == m) return;
    const auto last = a.from(pairs, 0);
    c += pairs;
    int j = 0;
    for (; j + 2 <= n; j += 2)
        complex_tile<1, 2, ConjA, ConjB>(k, alpha, last, b.from(0, j), c + j * ldc, ldc);
    if (j < n) complex_tile<1, 1, ConjA, ConjB>(k, alpha, last, b.from(0, j), c + j * ldc, ldc);
}

} // namespace

#define POST(name, T, op_a, op_b)                                                                  \
    VOR_ENGINE void name PARAMS_GEMM_POST(T) {                                                     \
        sums_of_rows(*m, *n, *k, *alpha, Operand<T>(Op::op_a, a, *lda),                            \
                     Operand<T>(Op::op_b, b, *ldb), c, *ldc);                                      \
    }
POST(vor_blas_dpst_nnk, double, plain, plain)
POST(vor_blas_dpst_ntk, double, plain, transposed)
POST(vor_blas_dpst_tnk, double, transposed, plain)
POST(vor_blas_dpst_ttk, double, transposed, transposed)
POST(vor_blas_dpst_nnm, double, plain, plain)
POST(vor_blas_dpst_ntm, double, plain, transposed)
POST(vor_blas_dpst_tnm, double, transposed, plain)
POST(vor_blas_dpst_ttm, double, transposed, transposed)
POST(vor_blas_spst_ntk, float, plain, transposed)
POST(vor_blas_spst_ttk, float, transposed, transposed)

#define COMPLEX_POST(name, op_a, op_b)                                                             \
    VOR_ENGINE void name PARAMS_XGEMM(cdouble) {                                                   \
        static_cast<void>(transa), static_cast<void>(transb), static_cast<void>(beta);             \
        complex_rows<Op::op_a == Op::conjugated, Op::op_b == Op::conjugated>(                      \
            *m, *n, *k, *alpha, Operand<cdouble>(Op::op_a, a, *lda),                               \
            Operand<cdouble>(Op::op_b, b, *ldb), c, *ldc);                                         \
    }
COMPLEX_POST(vor_blas_zpst_nn, plain, plain)
COMPLEX_POST(vor_blas_zpst_nt, plain, transposed)
COMPLEX_POST(vor_blas_zpst_nc, plain, conjugated)
COMPLEX_POST(vor_blas_zpst_tn, transposed, plain)
COMPLEX_POST(vor_blas_zpst_tt, transposed, transposed)
COMPLEX_POST(vor_blas_zpst_tc, transposed, conjugated)
COMPLEX_POST(vor_blas_zpst_cn, conjugated, plain)
COMPLEX_POST(vor_blas_zpst_ct, conjugated, transposed)
COMPLEX_POST(vor_blas_zpst_cc, conjugated, conjugated)

} // namespace vor::blas
