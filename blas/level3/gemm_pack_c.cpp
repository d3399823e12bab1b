// Panels and C block of cgemm: layouts in gemm_pack.h.
#include "blas/kernel/gemm_operand.h"
#include "blas/kernel/gemm_scale.h"
#include "blas/level3/gemm_pack.h"
#include "serv/entry.h"

namespace {

using vor::cfloat;
using vor::Op;
using vor::Operand;

cfloat read(const Operand<cfloat>& x, int i, int j, bool conjugated) {
    const cfloat value = x(i, j);
    return {value.re, conjugated ? 0 - value.im : value.im};
}

void pack_a(Op op, const cfloat* matrix, int lda, int m, int k, float* pack, cfloat alpha) {
    const Operand<cfloat> a(op, matrix, lda);
    for (int i = 0; i < m; ++i)
        for (int l = 0; l < k; ++l) {
            const cfloat x = vor::product(read(a, i, l, op == Op::conjugated), alpha);
            float* at = pack + i / 2 * 4 * k + l / 4 * 16 + i % 2 * 8 + l % 4;
            at[0] = x.re;
            at[4] = x.im;
        }
}

void pack_b(Op op, int n, int k, const cfloat* matrix, int ldb, float* pack, int ldp) {
    const Operand<cfloat> b(op, matrix, ldb);
    for (int j = 0; j < n; ++j, pack += 2 * ldp)
        for (int l = 0; l < k; ++l) {
            const cfloat x = read(b, l, j, op == Op::conjugated);
            float* at = pack + l / 4 * 8 + l % 4;
            at[0] = x.re;
            at[4] = x.im;
        }
}

// visit(element of C, element of the block) for every element of C.
template <class Element, class BlockElement, class F>
void walk(int m, int n, Element* c, int ldc, BlockElement* block, int rows, F visit) {
    for (int i = 0; i < m; i += rows)
        for (int j = 0; j < n; ++j, block += rows)
            for (int r = 0; r < rows && i + r < m; ++r) visit(c[i + r + j * ldc], block[r]);
}

} // namespace

#define PACK_A(name, op)                                                                           \
    VOR_ENGINE void vor_blas_##name PARAMS_PACK_A_C {                                              \
        pack_a(Op::op, a, *lda, *m, *k, pack, *alpha);                                             \
    }
#define PACK_B(name, op)                                                                           \
    VOR_ENGINE void vor_blas_##name PARAMS_PACK_B_C {                                              \
        pack_b(Op::op, *n, *k, b, *ldb, pack, *ldp);                                               \
    }
PACK_A(cgtran, plain)
PACK_A(cgtrat, transposed)
PACK_A(cgtrac, conjugated)
PACK_B(cgcopybn, plain)
PACK_B(cgcopybt, transposed)
PACK_B(cgcopybc, conjugated)

VOR_ENGINE void vor_blas_ccopycf0 PARAMS_COPY_C {
    walk(*m, *n, c, *ldc, block, *ldb8, [](const cfloat&, cfloat& x) { x = {0, 0}; });
}
VOR_ENGINE void vor_blas_ccopycf1 PARAMS_COPY_C {
    walk(*m, *n, c, *ldc, block, *ldb8, [](const cfloat& y, cfloat& x) { x = y; });
}
VOR_ENGINE void vor_blas_ccopycf PARAMS_COPY_C_SCALED {
    const cfloat s = *beta;
    walk(*m, *n, c, *ldc, block, *ldb8,
         [s](const cfloat& y, cfloat& x) { x = vor::product(y, s); });
}
VOR_ENGINE void vor_blas_ccopycr PARAMS_COPY_C_BACK {
    walk(*m, *n, c, *ldc, block, *ldb8, [](cfloat& y, const cfloat& x) { y = x; });
}
