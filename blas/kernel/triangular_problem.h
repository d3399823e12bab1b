// The arguments of a solve or a product with a triangle, seen through their letters.
//
// The triangular dimension is m on the left and n on the right; along the other one run the right sides,
// independent of one another: columns of B on the left, rows on the right.
#pragma once

#include "blas/kernel/gemm_operand.h"
#include "blas/letters.h"
#include "blas/signatures.h"

namespace vor::blas {

// One call but for its alpha.
template <class T>
struct TriangularProblem {
    const char *side, *uplo, *transa, *diag;
    int m, n;
    const T* a;
    int lda;
    T* b;
    int ldb;

    bool left() const { return is_letter(side, 'L'); }
    bool upper() const { return is_letter(uplo, 'U'); }
    bool plain() const { return is_letter(transa, 'N'); }
    bool unit() const { return !is_letter(diag, 'N'); }
    Op op() const { return op_of<T>(*transa); }
    // Whether equation i of the (on the right: transposed) system holds the unknowns up to i, so that
    // a solve ascends; a product, which must not overwrite what it still reads, then descends.
    bool lower_system() const { return left() == (upper() != plain()); }

    int order() const { return left() ? m : n; }
    int others() const { return left() ? n : m; }

    // Row k of right side q of B.
    T* b_at(int k, int q) const { return left() ? b + k + q * ldb : b + q + k * ldb; }
};

} // namespace vor::blas

// The arguments of PARAMS_XTRMM(T) as a problem.
#define TRIANGULAR_PROBLEM(T)                                                                      \
    ::vor::blas::TriangularProblem<T> {                                                            \
        side, uplo, transa, diag, *m, *n, a, *lda, b, *ldb                                         \
    }
// The same with flags for the triangle and the diagonal: PARAMS_TRMM_LEAF(T).
#define TRIANGULAR_PROBLEM_OF_LEAF(T, side, trans)                                                 \
    ::vor::blas::TriangularProblem<T> {                                                            \
        side, *uploflag ? "U" : "L", trans, *diagflag ? "U" : "N", *m, *n, a, *lda, b, *ldb        \
    }
