// Post-passes of dgemm, zgemm and sgemm: C(i, j) := alpha * sum + C(i, j), contract in gemm_kernels.h.
//
// A sum takes its terms in ascending order of l, from 0. d, z and the two s forms with a transposed B
// sum in extended precision and round once, into C; of a complex term the products with the real part
// of b enter before those with its imaginary part. The two other s forms round to single precision at every step.
#include "blas/kernel/gemm_kernels.h"
#include "blas/kernel/gemm_operand.h"
#include "serv/entry.h"

#include <xmmintrin.h>

namespace {

using vor::cdouble;
using vor::Op;
using vor::Operand;

// ---- Extended precision: R rows and S columns of sums are live together.

template <int R, int S, class T>
inline void tile(int k, T alpha, Operand<T> a, Operand<T> b, T* c, int ldc) {
    long double sum[S][R] = {};
    const T* bs[S];
    for (int s = 0; s < S; ++s) bs[s] = &b(0, s);
    const T* ar = a.at;
    for (int l = 0; l < k; ++l) {
        for (int s = 0; s < S; ++s)
            for (int r = 0; r < R; ++r)
                sum[s][r] += static_cast<long double>(ar[r * a.row]) * bs[s][0];
        ar += a.column;
        for (int s = 0; s < S; ++s) bs[s] += b.row;
    }
    for (int s = 0; s < S; ++s)
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
void extended(int m, int n, int k, T alpha, Operand<T> a, Operand<T> b, T* c, int ldc) {
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

// ---- Extended precision, complex: R rows of one column.

template <int R>
inline void complex_tile(int k, cdouble alpha, Operand<cdouble> a, bool conj_a, const cdouble* b,
                         int step, bool conj_b, cdouble* c) {
    long double re[R] = {}, im[R] = {};
    for (int l = 0; l < k; ++l)
        for (int r = 0; r < R; ++r) {
            const cdouble x = a(r, l);
            const long double xi = conj_a ? -x.im : x.im;
            const long double yr = b[l * step].re;
            const long double yi = conj_b ? -b[l * step].im : b[l * step].im;
            re[r] += x.re * yr;
            im[r] += xi * yr;
            re[r] -= xi * yi;
            im[r] += x.re * yi;
        }
    for (int r = 0; r < R; ++r) {
        c[r].re = static_cast<double>(re[r] * alpha.re - im[r] * alpha.im + c[r].re);
        c[r].im = static_cast<double>(re[r] * alpha.im + im[r] * alpha.re + c[r].im);
    }
}

void complex_rows(int m, int n, int k, cdouble alpha, Op op_a, const cdouble* a, int lda, Op op_b,
                  const cdouble* b, int ldb, cdouble* c, int ldc) {
    const Operand<cdouble> left(op_a, a, lda), right(op_b, b, ldb);
    const bool conj_a = op_a == Op::conjugated, conj_b = op_b == Op::conjugated;
    for (int j = 0; j < n; ++j) {
        const cdouble* column = &right(0, j);
        int i = 0;
        for (; i + 2 <= m; i += 2)
            complex_tile<2>(k, alpha, left.from(i, 0), conj_a, column, right.row, conj_b,
                            c + i + j * ldc);
        if (i < m)
            complex_tile<1>(k, alpha, left.from(i, 0), conj_a, column, right.row, conj_b,
                            c + i + j * ldc);
    }
}

// ---- Single precision.

void single(int m, int n, int k, float alpha, Operand<float> a, Operand<float> b, float* c,
            int ldc) {
    for (int j = 0; j < n; ++j)
        for (int i = 0; i < m; ++i) {
            float sum = 0;
            for (int l = 0; l < k; ++l) sum += a(i, l) * b(l, j);
            c[i + j * ldc] = sum * alpha + c[i + j * ldc];
        }
}

} // namespace

#define POST(name, T, way, op_a, op_b)                                                             \
    VOR_ENGINE void vor_blas_##name PARAMS_GEMM_POST(T) {                                          \
        way(*m, *n, *k, *alpha, Operand<T>(Op::op_a, a, *lda), Operand<T>(Op::op_b, b, *ldb), c,   \
            *ldc);                                                                                 \
    }
POST(dpst_nnk, double, extended, plain, plain)
POST(dpst_ntk, double, extended, plain, transposed)
POST(dpst_tnk, double, extended, transposed, plain)
POST(dpst_ttk, double, extended, transposed, transposed)
POST(dpst_nnm, double, extended, plain, plain)
POST(dpst_ntm, double, extended, plain, transposed)
POST(dpst_tnm, double, extended, transposed, plain)
POST(dpst_ttm, double, extended, transposed, transposed)
POST(spst_ntk, float, extended, plain, transposed)
POST(spst_ttk, float, extended, transposed, transposed)
POST(spst_nnk, float, single, plain, plain)
POST(spst_tnk, float, single, transposed, plain)

#define COMPLEX_POST(letters, op_a, op_b)                                                          \
    VOR_ENGINE void vor_blas_zpst_##letters PARAMS_XGEMM(cdouble) {                                \
        static_cast<void>(transa), static_cast<void>(transb), static_cast<void>(beta);             \
        complex_rows(*m, *n, *k, *alpha, Op::op_a, a, *lda, Op::op_b, b, *ldb, c, *ldc);           \
    }
COMPLEX_POST(nn, plain, plain)
COMPLEX_POST(nt, plain, transposed)
COMPLEX_POST(nc, plain, conjugated)
COMPLEX_POST(tn, transposed, plain)
COMPLEX_POST(tt, transposed, transposed)
COMPLEX_POST(tc, transposed, conjugated)
COMPLEX_POST(cn, conjugated, plain)
COMPLEX_POST(ct, conjugated, transposed)
COMPLEX_POST(cc, conjugated, conjugated)
