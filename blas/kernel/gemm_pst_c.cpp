// vor_blas_cgemmpst: C := alpha * op(A) * op(B) + beta * C by plain loops, without scratch. With alpha
// = 0 A and B are not read, with beta = 0 C is not read.
//
// Each element has four sums in single precision, all in ascending order of l: re re, im re, re im and
// im im. A vector holds two rows, real and imaginary part side by side, so that one register
// accumulates the products with the real parts of b and another those with the imaginary ones; the
// sums are combined, and conjugation enters as their signs, once at the end.
#include "blas/kernel/complex_rows.h"
#include "blas/kernel/gemm_kernels.h"
#include "blas/kernel/gemm_operand.h"
#include "blas/kernel/gemm_scale.h"
#include "serv/entry.h"

namespace vor::blas {
namespace {

// How a finished sum enters C: the signs of the products with re(b) and, parts exchanged, of those
// with im(b); then C := alpha * sum, plus C, plus beta * C.
struct Finish {
    __m128 by_re_sign, by_im_sign;
    RowFactor alpha, beta;
    enum { overwrite, add, scale_and_add } way;
};

template <int R>
inline void finish(__m128 by_re, __m128 by_im, const Finish& how, cfloat* c) {
    const __m128 sum = _mm_add_ps(_mm_xor_ps(by_re, how.by_re_sign),
                                  _mm_xor_ps(swap_parts(by_im), how.by_im_sign));
    __m128 result = how.alpha.times(sum);
    if (how.way != Finish::overwrite) {
        const __m128 old = load_rows<R>(c);
        result = _mm_add_ps(result, how.way == Finish::add ? old : how.beta.times(old));
    }
    store_rows<R>(c, result);
}

// Row i of one column of op(A), and with R = 2 the next one; Down: they stand one behind the other.
template <int R, bool Down>
inline __m128 rows_from(const Operand<cfloat>& a, int i) {
    if constexpr (R == 1 || Down) return load_rows<R>(&a(i, 0));
    return _mm_loadh_pi(load_rows<1>(&a(i, 0)), half(&a(i + 1, 0)));
}

// P vectors of R rows of one column.
template <int P, int R, bool Down>
inline void tile(int k, Operand<cfloat> a, const cfloat* b, int step, const Finish& how,
                 cfloat* c) {
    __m128 by_re[P], by_im[P];
#pragma GCC unroll 2
    for (int p = 0; p < P; ++p) by_re[p] = by_im[p] = _mm_setzero_ps();
    const auto add = [&]() __attribute__((always_inline)) {
        const __m128 re = _mm_set1_ps(b->re), im = _mm_set1_ps(b->im);
#pragma GCC unroll 2
        for (int p = 0; p < P; ++p) {
            const __m128 x = rows_from<R, Down>(a, 2 * p);
            by_re[p] = _mm_add_ps(by_re[p], _mm_mul_ps(x, re));
            by_im[p] = _mm_add_ps(by_im[p], _mm_mul_ps(x, im));
        }
        a.at += a.column, b += step;
    };
    // Pairs of steps pay where loads are few.
    if constexpr (Down)
#pragma GCC unroll 2
        for (; k > 0; --k) add();
    else
        for (; k > 0; --k) add();
#pragma GCC unroll 2
    for (int p = 0; p < P; ++p) finish<R>(by_re[p], by_im[p], how, c + 2 * p);
}

// m rows, each column of b in turn. Out of line: the members of `how` then stay in memory and leave the
// registers to the sums.
template <bool Down>
[[gnu::noinline]] void multiply_rows(int m, int n, int k, Operand<cfloat> a, Operand<cfloat> b,
                                     const Finish& how, cfloat* c, int ldc) {
    for (int j = 0; j < n; ++j, c += ldc) {
        const cfloat* column = &b(0, j);
        int i = 0;
        for (; i + 4 <= m; i += 4) tile<2, 2, Down>(k, a.from(i, 0), column, b.row, how, c + i);
        for (; i + 2 <= m; i += 2) tile<1, 2, Down>(k, a.from(i, 0), column, b.row, how, c + i);
        if (i < m) tile<1, 1, Down>(k, a.from(i, 0), column, b.row, how, c + i);
    }
}

// Flips the sign of the real, of the imaginary parts.
__m128 signs(bool re, bool im) {
    const float r = re ? -0.0f : 0.0f, i = im ? -0.0f : 0.0f;
    return _mm_setr_ps(r, i, r, i);
}

} // namespace

VOR_ENGINE void vor_blas_cgemmpst PARAMS_XGEMM(cfloat) {
    if (is_zero(*alpha)) return scale_matrix(*m, *n, *beta, c, *ldc);
    const Op op_a = op_of<cfloat>(*transa), op_b = op_of<cfloat>(*transb);
    const bool conj_a = op_a == Op::conjugated, conj_b = op_b == Op::conjugated;
    const auto way = is_zero(*beta)  ? Finish::overwrite
                     : is_one(*beta) ? Finish::add
                                     : Finish::scale_and_add;
    // re re - im im, or plus if one operand is conjugated; im re and re im with the sign of theirs.
    const Finish how{signs(false, conj_a), signs(conj_a == conj_b, conj_b), RowFactor(*alpha),
                     RowFactor(*beta), way};
    (op_a == Op::plain ? multiply_rows<true>
                       : multiply_rows<false>)(*m, *n, *k, Operand<cfloat>(op_a, a, *lda),
                                               Operand<cfloat>(op_b, b, *ldb), how, c, *ldc);
}

} // namespace vor::blas
