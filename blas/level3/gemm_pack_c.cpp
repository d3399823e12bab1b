// Panels and C block of cgemm: layouts in gemm_pack.h.
#include "blas/kernel/gemm_operand.h"
#include "blas/kernel/gemm_scale.h"
#include "blas/level3/gemm_pack.h"
#include "serv/entry.h"

#include <string.h>
#include <xmmintrin.h>

namespace {

using vor::cfloat;
using vor::Op;

constexpr int kSteps = 4;                                 // of l in one vector
constexpr int kPairA = 4 * kSteps, kColumnB = 2 * kSteps; // floats of one vector step in a panel

// The parts of four elements.
struct Parts {
    __m128 re, im;
};

inline __m128 load(const cfloat* x) {
    return _mm_loadu_ps(&x->re);
}

// Four consecutive elements.
inline Parts load_along(const cfloat* x) {
    const __m128 low = load(x), high = load(x + 2);
    return {_mm_shuffle_ps(low, high, _MM_SHUFFLE(2, 0, 2, 0)),
            _mm_shuffle_ps(low, high, _MM_SHUFFLE(3, 1, 3, 1))};
}

// Four elements `ld` apart, and their four neighbours.
inline void load_across(const cfloat* x, int ld, Parts& first, Parts& second) {
    __m128 x0 = load(x), x1 = load(x + ld), x2 = load(x + 2 * ld), x3 = load(x + 3 * ld);
    _MM_TRANSPOSE4_PS(x0, x1, x2, x3);
    first = {x0, x1};
    second = {x2, x3};
}

// Four elements `ld` apart, alone.
inline Parts load_column(const cfloat* x, int ld) {
    return {_mm_setr_ps(x[0].re, x[ld].re, x[2 * ld].re, x[3 * ld].re),
            _mm_setr_ps(x[0].im, x[ld].im, x[2 * ld].im, x[3 * ld].im)};
}

inline Parts conjugate(Parts x) {
    return {x.re, _mm_sub_ps(_mm_setzero_ps(), x.im)};
}

inline Parts times(Parts x, cfloat y) {
    const __m128 re = _mm_set1_ps(y.re), im = _mm_set1_ps(y.im);
    return {_mm_sub_ps(_mm_mul_ps(x.re, re), _mm_mul_ps(x.im, im)),
            _mm_add_ps(_mm_mul_ps(x.re, im), _mm_mul_ps(x.im, re))};
}

inline void store(float* pack, Parts x) {
    _mm_storeu_ps(pack, x.re);
    _mm_storeu_ps(pack + kSteps, x.im);
}

template <Op op>
void pack_a(const cfloat* a, int lda, int m, int k, float* pack, cfloat alpha) {
    for (int i = 0; i < m; i += 2)
        for (int l = 0; l < k; l += kSteps, pack += kPairA) {
            Parts first, second;
            if constexpr (op == Op::plain) {
                load_across(a + i + l * lda, lda, first, second);
            } else {
                first = load_along(a + i * lda + l);
                second = load_along(a + (i + 1) * lda + l);
            }
            if constexpr (op == Op::conjugated) {
                first = conjugate(first);
                second = conjugate(second);
            }
            store(pack, times(first, alpha));
            store(pack + kColumnB, times(second, alpha));
        }
}

template <Op op>
void pack_b(int n, int k, const cfloat* b, int ldb, float* pack, int ldp) {
    const auto put = [](float* at, Parts x) { store(at, op == Op::conjugated ? conjugate(x) : x); };
    for (int j = 0; j < n; j += 2, pack += 4 * ldp)
        for (int l = 0; l < k; l += kSteps) {
            float* at = pack + l / kSteps * kColumnB;
            Parts first, second;
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
    VOR_ENGINE void vor_blas_##name PARAMS_PACK_A_C {                                              \
        pack_a<Op::op>(a, *lda, *m, *k, pack, *alpha);                                             \
    }
#define PACK_B(name, op)                                                                           \
    VOR_ENGINE void vor_blas_##name PARAMS_PACK_B_C {                                              \
        pack_b<Op::op>(*n, *k, b, *ldb, pack, *ldp);                                               \
    }
PACK_A(cgtran, plain)
PACK_A(cgtrat, transposed)
PACK_A(cgtrac, conjugated)
PACK_B(cgcopybn, plain)
PACK_B(cgcopybt, transposed)
PACK_B(cgcopybc, conjugated)

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
        for (int i = 0; i < count; ++i) x[i] = vor::product(y[i], s);
    });
}

VOR_ENGINE void vor_blas_ccopycr PARAMS_COPY_C_BACK {
    walk(*m, *n, c, *ldc, block, *ldb8,
         [](cfloat* y, const cfloat* x, int count) { copy(y, x, count); });
}
