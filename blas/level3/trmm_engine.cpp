// The block levels of trmm: B := alpha * op(A) * B or B := alpha * B * op(A) on the calling thread.
//
// n = 0: nothing happens. alpha = 0: B := 0, A is not read. alpha is not applied beforehand: every leaf
// and every product has it.
//
// A level multiplies a diagonal block in place by the next one, then adds the product with the part of
// B that is still as it was: that part lies ahead of the walk.
#include "blas/level3/triangular.h"
#include "blas/level3/trmm_leaves.h"
#include "serv/entry.h"

namespace {

using vor::Block;
using vor::cdouble;
using vor::cfloat;
using vor::Op;
using vor::Triangular;

template <class T>
void multiply_blocks(const Triangular<T>& p, T alpha, int size, int chunk,
                     typename Triangular<T>::Routine* next) {
    for (int q = 0; q < p.others(); q += chunk) {
        const int width = std::min(chunk, p.others() - q);
        p.walk(size, !p.lower_system(), [&](const Block& k) {
            p.descend(next, k, q, width, alpha);
            p.add_product(alpha, k.at, k.length, k.rest, k.rest_length, q, width);
        });
    }
}

// False if there is nothing to multiply; alpha = 0 is served here.
template <class T>
bool has_product(const Triangular<T>& p, T alpha) {
    if (p.n == 0) return false;
    if (!vor::is_zero(alpha)) return true;
    vor::zero_matrix(p.m, p.n, p.b, p.ldb);
    return false;
}

// The leaves know no letters.
template <class T>
using LeafRoutine = void PARAMS_TRMM_LEAF(T);

LeafRoutine<double>* leaf(const Triangular<double>& p) {
    if (p.left()) return p.plain() ? vor_blas_dtrmln : vor_blas_dtrmlt;
    return p.plain() ? vor_blas_dtrmrn : vor_blas_dtrmrt;
}

template <class T>
LeafRoutine<T>* complex_leaf(const Triangular<T>& p, LeafRoutine<T>* const (&left)[3],
                             LeafRoutine<T>* const (&right)[3]) {
    return (p.left() ? left : right)[static_cast<int>(vor::op_of<T>(*p.transa))];
}

LeafRoutine<cfloat>* leaf(const Triangular<cfloat>& p) {
    return complex_leaf<cfloat>(p, {vor_blas_ctrmln, vor_blas_ctrmlt, vor_blas_ctrmlc},
                                {vor_blas_ctrmrn, vor_blas_ctrmrt, vor_blas_ctrmrc});
}

LeafRoutine<cdouble>* leaf(const Triangular<cdouble>& p) {
    return complex_leaf<cdouble>(p, {vor_blas_ztrmln, vor_blas_ztrmlt, vor_blas_ztrmlc},
                                 {vor_blas_ztrmrn, vor_blas_ztrmrt, vor_blas_ztrmrc});
}

template <class T>
void run_leaf PARAMS_XTRMM(T) {
    const auto p = TRIANGULAR(T);
    const int unit = p.unit(), upper = p.upper();
    if constexpr (std::is_same_v<T, float>) {
        const int transposed = !p.plain();
        if (!p.left())
            return vor_blas_strmm_inn(m, n, alpha, a, lda, b, ldb, &unit, &upper, &transposed);
        (p.plain() ? vor_blas_strmln : vor_blas_strmlt)(m, n, alpha, a, lda, b, ldb, &unit, &upper);
    } else {
        leaf(p)(m, n, alpha, a, lda, b, ldb, &unit, &upper);
    }
}

} // namespace

extern "C" {
void vor_blas_dtrmm_l1 PARAMS_XTRMM(double);
void vor_blas_dtrmm_l2 PARAMS_XTRMM(double);
void vor_blas_strmm_l2 PARAMS_XTRMM(float);
void vor_blas_ctrmm_l1 PARAMS_XTRMM(cfloat);
void vor_blas_ctrmm_l2 PARAMS_XTRMM(cfloat);
void vor_blas_ztrmm_l1 PARAMS_XTRMM(cdouble);
}

// One level: its block and its chunk of right sides for the problem p, and what multiplies a block.
#define LEVEL(name, T, size, chunk, next)                                                          \
    VOR_ENGINE void vor_blas_##name PARAMS_XTRMM(T) {                                              \
        const auto p = TRIANGULAR(T);                                                              \
        if (has_product(p, *alpha)) multiply_blocks(p, *alpha, size, chunk, next);                 \
    }

LEVEL(dtrmm_l2, double, 32, 2048, run_leaf<double>)
LEVEL(dtrmm_l1, double, 64, 2048, vor_blas_dtrmm_l2)
LEVEL(xdtrmm, double, 128, p.left() && p.plain() ? 2048 : 1024,
      p.left() ? vor_blas_dtrmm_l1 : vor_blas_dtrmm_l2)

LEVEL(strmm_l2, float, 16, 1024, run_leaf<float>)
LEVEL(xstrmm, float, p.left() ? 32 : 128, 1024, p.left() ? run_leaf<float> : vor_blas_strmm_l2)

LEVEL(ctrmm_l2, cfloat, 16, 1024, run_leaf<cfloat>)
LEVEL(ctrmm_l1, cfloat, p.left() ? 64 : 32, 1024, vor_blas_ctrmm_l2)
LEVEL(xctrmm, cfloat, 128, 1024, vor_blas_ctrmm_l1)

LEVEL(ztrmm_l1, cdouble, 32, 128, run_leaf<cdouble>)
LEVEL(xztrmm, cdouble, p.left() ? 128 : 64, p.left() ? 256 : 512, vor_blas_ztrmm_l1)
