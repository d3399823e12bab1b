// The block levels of trmm: B := alpha * op(A) * B or B := alpha * B * op(A) on the calling thread.
//
// n = 0: nothing happens. alpha = 0: B := 0, A is not read. alpha is not applied beforehand: every leaf
// and every product has it.
//
// A level multiplies a diagonal block in place by the next one, then adds the product with the part of
// B that is still as it was: that part lies ahead of the walk.
#include "blas/kernel/gemm_scale.h"
#include "blas/kernel/trmm_leaves.h"
#include "blas/level3/triangular.h"
#include "serv/entry.h"

extern "C" {
void vor_blas_dtrmm_l1 PARAMS_XTRMM(double);
void vor_blas_dtrmm_l2 PARAMS_XTRMM(double);
void vor_blas_strmm_l2 PARAMS_XTRMM(float);
void vor_blas_ctrmm_l1 PARAMS_XTRMM(vor::cfloat);
void vor_blas_ctrmm_l2 PARAMS_XTRMM(vor::cfloat);
void vor_blas_ztrmm_l1 PARAMS_XTRMM(vor::cdouble);
}

namespace vor::blas {
namespace {

template <class T>
void multiply_blocks(const BlockedTriangle<T>& p, T alpha, int size, int chunk,
                     typename BlockedTriangle<T>::Routine* next) {
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
bool has_product(const BlockedTriangle<T>& p, T alpha) {
    if (p.n == 0) return false;
    if (!is_zero(alpha)) return true;
    zero_matrix(p.m, p.n, p.b, p.ldb);
    return false;
}

// The leaves know no letters.
template <class T>
void run_leaf PARAMS_XTRMM(T) {
    const auto p = TRIANGULAR_PROBLEM(T);
    const int unit = p.unit(), upper = p.upper();
    TrmmLeaves<T>::of[!p.left()][index_of(p.op())](m, n, alpha, a, lda, b, ldb, &unit, &upper);
}

} // namespace

// One level: its block and its chunk of right sides for the problem p, and what multiplies a block.
#define LEVEL(name, T, size, chunk, next)                                                          \
    VOR_ENGINE void name PARAMS_XTRMM(T) {                                                         \
        const auto p = BlockedTriangle<T>{TRIANGULAR_PROBLEM(T)};                                  \
        if (has_product(p, *alpha)) multiply_blocks(p, *alpha, size, chunk, next);                 \
    }

LEVEL(vor_blas_dtrmm_l2, double, 32, 2048, run_leaf<double>)
LEVEL(vor_blas_dtrmm_l1, double, 64, 2048, vor_blas_dtrmm_l2)
LEVEL(vor_blas_xdtrmm, double, 128, p.left() && p.plain() ? 2048 : 1024,
      p.left() ? vor_blas_dtrmm_l1 : vor_blas_dtrmm_l2)

LEVEL(vor_blas_strmm_l2, float, 16, 1024, run_leaf<float>)
LEVEL(vor_blas_xstrmm, float, p.left() ? 32 : 128, 1024,
      p.left() ? run_leaf<float> : vor_blas_strmm_l2)

LEVEL(vor_blas_ctrmm_l2, cfloat, 16, 1024, run_leaf<cfloat>)
LEVEL(vor_blas_ctrmm_l1, cfloat, p.left() ? 64 : 32, 1024, vor_blas_ctrmm_l2)
LEVEL(vor_blas_xctrmm, cfloat, 128, 1024, vor_blas_ctrmm_l1)

LEVEL(vor_blas_ztrmm_l1, cdouble, 32, 128, run_leaf<cdouble>)
LEVEL(vor_blas_xztrmm, cdouble, p.left() ? 128 : 64, p.left() ? 256 : 512, vor_blas_ztrmm_l1)

} // namespace vor::blas
