// vor_blas_cgemmpst: C := alpha * op(A) * op(B) + beta * C by plain loops, without scratch. With alpha
// = 0 A and B are not read, with beta = 0 C is not read.
//
// Each element has four sums in single precision, all in ascending order of l: re re, im re, re im and
// im im. A vector holds two rows, real and imaginary part side by side, so that one register
// accumulates the products with the real parts of b and another those with the imaginary ones; the
// sums are combined, and conjugation enters as their signs, once at the end.
#include "blas/kernel/gemm_kernels.h"
#include "blas/kernel/gemm_operand.h"
#include "blas/kernel/gemm_scale.h"
#include "serv/entry.h"

#include <xmmintrin.h>

namespace {

using vor::cfloat;
using vor::Op;
using vor::Operand;

// How a finished sum enters C.
struct Finish {
    __m128 swap_sign; // of the products with im(b), parts exchanged: for the lanes re, im, re, im
    __m128 direct_sign;
    cfloat alpha, beta;
    bool read_c;
};

inline __m128 exchange_parts(__m128 x) {
    return _mm_shuffle_ps(x, x, _MM_SHUFFLE(2, 3, 0, 1));
}

// x * s for two complex numbers in x.
inline __m128 times(__m128 x, cfloat s) {
    const __m128 swapped = _mm_mul_ps(exchange_parts(x), _mm_setr_ps(-s.im, s.im, -s.im, s.im));
    return _mm_add_ps(_mm_mul_ps(x, _mm_set1_ps(s.re)), swapped);
}

// Rows at x and, if there are two, at y.
template <int R>
inline __m128 load(const cfloat* x, const cfloat* y) {
    const __m128 low = _mm_loadl_pi(_mm_setzero_ps(), reinterpret_cast<const __m64*>(x));
    return R == 2 ? _mm_loadh_pi(low, reinterpret_cast<const __m64*>(y)) : low;
}

template <int R>
inline void finish(__m128 by_re, __m128 by_im, const Finish& how, cfloat* c) {
    const __m128 sum = _mm_add_ps(_mm_xor_ps(by_re, how.direct_sign),
                                  _mm_xor_ps(exchange_parts(by_im), how.swap_sign));
    __m128 result = times(sum, how.alpha);
    if (how.read_c) result = _mm_add_ps(result, times(load<R>(c, c + 1), how.beta));
    _mm_storel_pi(reinterpret_cast<__m64*>(c), result);
    if (R == 2) _mm_storeh_pi(reinterpret_cast<__m64*>(c + 1), result);
}

// P pairs of R rows of one column.
template <int P, int R>
inline void tile(int k, Operand<cfloat> a, const cfloat* b, int step, const Finish& how,
                 cfloat* c) {
    __m128 by_re[P], by_im[P];
    for (int p = 0; p < P; ++p) by_re[p] = by_im[p] = _mm_setzero_ps();
    for (int l = 0; l < k; ++l, a.at += a.column, b += step) {
        const __m128 re = _mm_set1_ps(b->re), im = _mm_set1_ps(b->im);
        for (int p = 0; p < P; ++p) {
            const __m128 x = load<R>(&a(2 * p, 0), &a(2 * p + 1, 0));
            by_re[p] = _mm_add_ps(by_re[p], _mm_mul_ps(x, re));
            by_im[p] = _mm_add_ps(by_im[p], _mm_mul_ps(x, im));
        }
    }
    for (int p = 0; p < P; ++p) finish<R>(by_re[p], by_im[p], how, c + 2 * p);
}

__m128 signs(bool even, bool odd) {
    const float e = even ? -0.0f : 0.0f, o = odd ? -0.0f : 0.0f;
    return _mm_setr_ps(e, o, e, o);
}

void product(Op op_a, Op op_b, int m, int n, int k, cfloat alpha, const cfloat* a, int lda,
             const cfloat* b, int ldb, cfloat beta, cfloat* c, int ldc) {
    const bool conj_a = op_a == Op::conjugated, conj_b = op_b == Op::conjugated;
    const Operand<cfloat> left(op_a, a, lda), right(op_b, b, ldb);
    // re = re re - (-1)^(conj_a + conj_b) im im, im = (-1)^conj_b re im + (-1)^conj_a im re.
    const Finish how{signs(conj_a == conj_b, conj_b), signs(false, conj_a), alpha, beta,
                     !vor::is_zero(beta)};
    for (int j = 0; j < n; ++j, c += ldc) {
        const cfloat* column = &right(0, j);
        int i = 0;
        for (; i + 4 <= m; i += 4) tile<2, 2>(k, left.from(i, 0), column, right.row, how, c + i);
        for (; i + 2 <= m; i += 2) tile<1, 2>(k, left.from(i, 0), column, right.row, how, c + i);
        if (i < m) tile<1, 1>(k, left.from(i, 0), column, right.row, how, c + i);
    }
}

} // namespace

VOR_ENGINE void vor_blas_cgemmpst PARAMS_XGEMM(cfloat) {
    if (vor::is_zero(*alpha)) return vor::scale_matrix(*m, *n, *beta, c, *ldc);
    product(vor::op_of<cfloat>(*transa), vor::op_of<cfloat>(*transb), *m, *n, *k, *alpha, a, *lda,
            b, *ldb, *beta, c, *ldc);
}
