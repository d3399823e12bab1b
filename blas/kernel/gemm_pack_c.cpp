// Panels and C block of cgemm: layouts in gemm_pack.h.
#include "arith/lanes.h"
#include "blas/kernel/gemm_operand.h"
#include "blas/kernel/gemm_pack.h"
#include "blas/kernel/gemm_scale.h"
#include "serv/entry.h"

#include <string.h>

namespace vor::blas {
namespace {

constexpr int kSteps = 4;                                 // of l in one vector
constexpr int kPairA = 4 * kSteps, kColumnB = 2 * kSteps; // floats of one vector step in a panel

// Four consecutive elements.
inline Four load_along(const cfloat* x) {
    return Interleaved::load(&x->re);
}

// Four elements `ld` apart, and their four neighbours.
inline void load_across(const cfloat* x, int ld, Four& first, Four& second) {
    __m128 x0 = load<false>(&x->re), x1 = load<false>(&x[ld].re);
    __m128 x2 = load<false>(&x[2 * ld].re), x3 = load<false>(&x[3 * ld].re);
    _MM_TRANSPOSE4_PS(x0, x1, x2, x3);
    first = {x0, x1};
    second = {x2, x3};
}

// Four elements `ld` apart, alone.
inline Four load_column(const cfloat* x, int ld) {
    return {_mm_setr_ps(x[0].re, x[ld].re, x[2 * ld].re, x[3 * ld].re),
            _mm_setr_ps(x[0].im, x[ld].im, x[2 * ld].im, x[3 * ld].im)};
}

// conj(x) with 0 - im: an imaginary part of 0, of either sign, becomes +0.
inline Four negated_im(Four x) {
    return {x.re, _mm_sub_ps(_mm_setzero_ps(), x.im)};
}

template <Op op>
void pack_a(const cfloat* a, int lda, int m, int k, float* pack, cfloat alpha) {
    const Four factor = {_mm_set1_ps(alpha.re), _mm_set1_ps(alpha.im)};
    for (int i = 0; i < m; i += 2)
        for (int l = 0; l < k; l += kSteps, pack += kPairA) {
            Four first, second;
            if constexpr (op == Op::plain) {
                load_across(a + i + l * lda, lda, first, second);
            } else {
                first = load_along(a + i * lda + l);
                second = load_along(a + (i + 1) * lda + l);
            }
            if constexpr (op == Op::conjugated) {
                first = negated_im(first);
                second = negated_im(second);
            }
            LanesAnywhere::store(pack, first * factor);
            LanesAnywhere::store(pack + kColumnB, second * factor);
        }
}

template <Op op>
void pack_b(int n, int k, const cfloat* b, int ldb, float* pack, int ldp) {
    const auto put = [](float* at, Four x) {
        LanesAnywhere::store(at, op == Op::conjugated ? negated_im(x) : x);
    };
    for (int j = 0; j < n; j += 2, pack += 4 * ldp)
        for (int l = 0; l < k; l += kSteps) {
            float* at = pack + l / kSteps * kColumnB;
            Four first, second;
            if (op == Op::plain) {
                put(at, load_along(b + j * ldb + l));
                if (j + 1 < n) put(at + 2 * ldp, load_along(b + (j + 1) * ldb + l));
            } else if (j + 1 < n) {
                load_across(b + j + l * ldb, ldb, first, second);
                put(at, first);
                put(at + 2 * ldp, second);
            } else {
                put(at, load_column(b + j + l * ldb, ldb));
            }
        }
}

// visit(element of C, element of the block, count) for every column of every group of `rows` rows.
template <class Element, class BlockElement, class F>
void walk(int m, int n, Element* c, int ldc, BlockElement* block, int rows, F visit) {
    for (int i = 0; i < m; i += rows) {
        const int count = m - i < rows ? m - i : rows;
        for (int j = 0; j < n; ++j, block += rows) visit(c + i + j * ldc, block, count);
    }
}

void copy(cfloat* to, const cfloat* from, int count) {
    if (count == 8) // the group that all engines use: a copy of known size is four vector moves
        memcpy(to, from, 8 * sizeof(cfloat));
    else
        memcpy(to, from, static_cast<size_t>(count) * sizeof(cfloat));
}

} // namespace

#define PACK_A(name, op)                                                                           \
    VOR_ENGINE void name PARAMS_PACK_A_C {                                                         \
        pack_a<Op::op>(a, *lda, *m, *k, pack, *alpha);                                             \
    }
#define PACK_B(name, op)                                                                           \
    VOR_ENGINE void name PARAMS_PACK_B_C {                                                         \
        pack_b<Op::op>(*n, *k, b, *ldb, pack, *ldp);                                               \
    }
PACK_A(vor_blas_cgtran, plain)
PACK_A(vor_blas_cgtrat, transposed)
PACK_A(vor_blas_cgtrac, conjugated)
PACK_B(vor_blas_cgcopybn, plain)
PACK_B(vor_blas_cgcopybt, transposed)
PACK_B(vor_blas_cgcopybc, conjugated)

VOR_ENGINE void vor_blas_ccopycf0 PARAMS_COPY_C {
    walk(*m, *n, c, *ldc, block, *ldb8, [](const cfloat*, cfloat* x, int count) {
        memset(x, 0, static_cast<size_t>(count) * sizeof(cfloat));
    });
}

VOR_ENGINE void vor_blas_ccopycf1 PARAMS_COPY_C {
    walk(*m, *n, c, *ldc, block, *ldb8,
         [](const cfloat* y, cfloat* x, int count) { copy(x, y, count); });
}

VOR_ENGINE void vor_blas_ccopycf PARAMS_COPY_C_SCALED {
    const cfloat s = *beta;
    walk(*m, *n, c, *ldc, block, *ldb8, [s](const cfloat* y, cfloat* x, int count) {
        for (int i = 0; i < count; ++i) x[i] = scaled(y[i], s);
    });
}

VOR_ENGINE void vor_blas_ccopycr PARAMS_COPY_C_BACK {
    walk(*m, *n, c, *ldc, block, *ldb8,
         [](cfloat* y, const cfloat* x, int count) { copy(y, x, count); });
}

} // namespace vor::blas
