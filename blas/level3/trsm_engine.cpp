// The block levels of trsm: op(A) * X = alpha * B or X * op(A) = alpha * B, X over B, on the calling
// thread.
//
// n = 0: nothing happens. alpha = 0: B := 0, A is not read. alpha = 1: B is not scaled.
//
// Right-looking at every level: a diagonal block is solved by the next level, then its effect on all
// unknowns that are still to come is subtracted in one matrix product. So all but the blocks of the
// leaves, 32 unknowns wide, is the work of the product's kernels.
#include "blas/level3/triangular.h"
#include "blas/level3/trsm_leaves.h"
#include "serv/entry.h"

namespace {

using vor::Block;
using vor::cdouble;
using vor::cfloat;
using vor::Triangular;

// Right sides between a solve and the product that follows: what both walk over stays in the cache.
constexpr int kChunk = 1024;

template <class T>
void solve_blocks(const Triangular<T>& p, int size, int chunk,
                  typename Triangular<T>::Routine* next) {
    constexpr T one = vor::real_element<T>(1), minus_one = vor::real_element<T>(-1);
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
bool scale_right_sides(const Triangular<T>& p, T alpha) {
    if (p.n == 0) return false;
    vor::scale_matrix(p.m, p.n, alpha, p.b, p.ldb);
    return !vor::is_zero(alpha);
}

Triangular<float>::Routine* leaf(const Triangular<float>& p) {
    if (!p.left()) return vor_blas_strsm_i;
    return p.plain() ? vor_blas_strsm_blk : vor_blas_strsmlt;
}

Triangular<double>::Routine* leaf(const Triangular<double>& p) {
    if (!p.left()) return p.plain() ? vor_blas_dtrsmrn : vor_blas_dtrsmrt;
    if (!p.plain()) return vor_blas_dtrsmlt;
    return p.upper() ? vor_blas_dtrsmlun : vor_blas_dtrsmlln;
}

Triangular<cdouble>::Routine* leaf(const Triangular<cdouble>& p) {
    if (!p.left()) return p.plain() ? vor_blas_ztrsmrn : vor_blas_ztrsmrt;
    if (!p.plain()) return vor_blas_ztrsmlt;
    return p.upper() ? vor_blas_ztrsmlun : vor_blas_ztrsmlln;
}

// The s and c cases that go through the middle level.
template <class T>
bool has_middle_level(const Triangular<T>& p) {
    return !p.left() || (p.upper() && p.plain());
}

} // namespace

extern "C" {
void vor_blas_dtrsm_l1 PARAMS_XTRMM(double);
void vor_blas_dtrsm_l2 PARAMS_XTRMM(double);
void vor_blas_strsm_l1 PARAMS_XTRMM(float);
void vor_blas_strsm_l2 PARAMS_XTRMM(float);
void vor_blas_ctrsm_l1 PARAMS_XTRMM(cfloat);
void vor_blas_ctrsm_l2 PARAMS_XTRMM(cfloat);
}

// One level: its block size for the problem p, and the routine that solves a block.
#define LEVEL(name, T, size, next)                                                                 \
    VOR_ENGINE void vor_blas_##name PARAMS_XTRMM(T) {                                              \
        static_cast<void>(alpha);                                                                  \
        const auto p = TRIANGULAR(T);                                                              \
        solve_blocks(p, size, kChunk, next);                                                       \
    }
#define TOP_LEVEL(name, T, size, chunk, next)                                                      \
    VOR_ENGINE void vor_blas_##name PARAMS_XTRMM(T) {                                              \
        const auto p = TRIANGULAR(T);                                                              \
        if (scale_right_sides(p, *alpha)) solve_blocks(p, size, chunk, next);                      \
    }

LEVEL(dtrsm_l2, double, 32, leaf(p))
LEVEL(dtrsm_l1, double, p.left() ? 128 : 256, vor_blas_dtrsm_l2)
TOP_LEVEL(xdtrsm, double, 512, kChunk, vor_blas_dtrsm_l1)

LEVEL(strsm_l2, float, 32, leaf(p))
LEVEL(strsm_l1, float, 128, vor_blas_strsm_l2)
TOP_LEVEL(xstrsm, float, p.left() ? 512 : 256, kChunk,
          has_middle_level(p) ? vor_blas_strsm_l1 : vor_blas_strsm_l2)

LEVEL(ctrsm_l2, cfloat, 32, vor_blas_ctrsm_i)
LEVEL(ctrsm_l1, cfloat, 64, vor_blas_ctrsm_l2)
TOP_LEVEL(xctrsm, cfloat, 256, kChunk, has_middle_level(p) ? vor_blas_ctrsm_l1 : vor_blas_ctrsm_l2)

TOP_LEVEL(xztrsm, cdouble, 32, std::max(1, p.others()), leaf(p))
