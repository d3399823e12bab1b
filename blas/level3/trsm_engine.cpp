// The block levels of trsm: op(A) * X = alpha * B or X * op(A) = alpha * B, X over B, on the calling
// thread.
//
// n = 0: nothing happens. alpha = 0: B := 0, A is not read. alpha = 1: B is not scaled.
//
// Right-looking at every level: a diagonal block is solved by the next level, then its effect on all
// unknowns that are still to come is subtracted in one matrix product. So all but the blocks of the
// leaves, 32 unknowns wide, is the work of the product's kernels.
#include "blas/kernel/gemm_scale.h"
#include "blas/kernel/trsm_leaves.h"
#include "blas/level3/triangular.h"
#include "serv/entry.h"

extern "C" {
void vor_blas_dtrsm_l1 PARAMS_XTRMM(double);
void vor_blas_dtrsm_l2 PARAMS_XTRMM(double);
void vor_blas_strsm_l1 PARAMS_XTRMM(float);
void vor_blas_strsm_l2 PARAMS_XTRMM(float);
void vor_blas_ctrsm_l1 PARAMS_XTRMM(vor::cfloat);
void vor_blas_ctrsm_l2 PARAMS_XTRMM(vor::cfloat);
}

namespace vor::blas {
namespace {

// Right sides between a solve and the product that follows: what both walk over stays in the cache.
constexpr int kChunk = 1024;

template <class T>
void solve_blocks(const BlockedTriangle<T>& p, int size, int chunk,
                  typename BlockedTriangle<T>::Routine* next) {
    constexpr T one = real_element<T>(1), minus_one = real_element<T>(-1);
    p.walk(size, p.lower_system(), [&](const Block& k) {
        for (int q = 0; q < p.others(); q += chunk) {
            const int width = std::min(chunk, p.others() - q);
            p.descend(next, k, q, width, one);
            p.add_product(minus_one, k.rest, k.rest_length, k.at, k.length, q, width);
        }
    });
}

// What the top level does before the blocks; false if nothing is left to solve.
template <class T>
bool scale_right_sides(const BlockedTriangle<T>& p, T alpha) {
    if (p.n == 0) return false;
    scale_matrix(p.m, p.n, alpha, p.b, p.ldb);
    return !is_zero(alpha);
}

template <class T>
TrsmLeaf<T>* leaf(const BlockedTriangle<T>& p) {
    return TrsmLeaves<T>::of[!p.left()][!p.plain()][p.upper()];
}

// The s and c cases that go through the middle level.
template <class T>
bool has_middle_level(const BlockedTriangle<T>& p) {
    return !p.left() || (p.upper() && p.plain());
}

} // namespace

// One level: its block size for the problem p, and the routine that solves a block.
#define LEVEL(name, T, size, next)                                                                 \
    VOR_ENGINE void name PARAMS_XTRMM(T) {                                                         \
        static_cast<void>(alpha);                                                                  \
        const auto p = BlockedTriangle<T>{TRIANGULAR_PROBLEM(T)};                                  \
        solve_blocks(p, size, kChunk, next);                                                       \
    }
#define TOP_LEVEL(name, T, size, chunk, next)                                                      \
    VOR_ENGINE void name PARAMS_XTRMM(T) {                                                         \
        const auto p = BlockedTriangle<T>{TRIANGULAR_PROBLEM(T)};                                  \
        if (scale_right_sides(p, *alpha)) solve_blocks(p, size, chunk, next);                      \
    }

LEVEL(vor_blas_dtrsm_l2, double, 32, leaf(p))
LEVEL(vor_blas_dtrsm_l1, double, p.left() ? 128 : 256, vor_blas_dtrsm_l2)
TOP_LEVEL(vor_blas_xdtrsm, double, 512, kChunk, vor_blas_dtrsm_l1)

LEVEL(vor_blas_strsm_l2, float, 32, leaf(p))
LEVEL(vor_blas_strsm_l1, float, 128, vor_blas_strsm_l2)
TOP_LEVEL(vor_blas_xstrsm, float, p.left() ? 512 : 256, kChunk,
          has_middle_level(p) ? vor_blas_strsm_l1 : vor_blas_strsm_l2)

LEVEL(vor_blas_ctrsm_l2, cfloat, 32, leaf(p))
LEVEL(vor_blas_ctrsm_l1, cfloat, 64, vor_blas_ctrsm_l2)
TOP_LEVEL(vor_blas_xctrsm, cfloat, 256, kChunk,
          has_middle_level(p) ? vor_blas_ctrsm_l1 : vor_blas_ctrsm_l2)

TOP_LEVEL(vor_blas_xztrsm, cdouble, 32, std::max(1, p.others()), leaf(p))

} // namespace vor::blas
