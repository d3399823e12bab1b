// What solves and products with a triangle share: the arguments seen through their letters, and the
// walk over the diagonal blocks.
//
// The triangular dimension (m on the left, n on the right) is cut into diagonal blocks; along the other
// dimension run the right sides, independent of one another: columns of B on the left, rows on the
// right. A walk ascends or descends, so that the short block, if there is one, comes last.
#pragma once

#include "blas/kernel/gemm_operand.h"
#include "blas/kernel/gemm_scale.h"
#include "blas/letters.h"
#include "blas/level3/level3_engines.h"

#include <algorithm>

namespace vor {

// A diagonal block, and the part of the triangular dimension that the walk has not come to yet.
struct Block {
    int at, length;
    int rest, rest_length;
};

// The arguments of one call but for alpha.
template <class T>
struct Triangular {
    using Routine = void PARAMS_XTRMM(T);

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
    bool conjugated() const { return op_of<T>(*transa) == Op::conjugated; }
    // Whether equation i of the (on the right: transposed) system holds the unknowns up to i, so that
    // a solve ascends; a product, which must not overwrite what it still reads, then descends.
    bool lower_system() const { return left() == (upper() != plain()); }

    int order() const { return left() ? m : n; }
    int others() const { return left() ? n : m; }

    // The first stored element of the block of op(A) that begins at (i, j).
    const T* a_at(int i, int j) const { return &Operand<T>(op_of<T>(*transa), a, lda)(i, j); }
    // Row k of right side q of B.
    T* b_at(int k, int q) const { return left() ? b + k + q * ldb : b + q + k * ldb; }

    // Calls visit(block) for the diagonal blocks of at most `size`.
    template <class F>
    void walk(int size, bool ascending, F visit) const {
        for (int done = 0; done < order(); done += size) {
            const int length = std::min(size, order() - done);
            const int remaining = order() - done - length;
            if (ascending)
                visit(Block{done, length, done + length, remaining});
            else
                visit(Block{remaining, length, 0, remaining});
        }
    }

    // Hands the diagonal block with `width` right sides from q on to `next`.
    void descend(Routine* next, const Block& block, int q, int width, const T& alpha) const {
        next(side, uplo, transa, diag, left() ? &block.length : &width,
             left() ? &width : &block.length, &alpha, a_at(block.at, block.at), &lda,
             b_at(block.at, q), &ldb);
    }

    // B(to) += alpha * op(A)(to, from) * B(from), on the right alpha * B(from) * op(A)(from, to), for
    // `width` right sides from q on.
    void add_product(T alpha, int to, int to_length, int from, int from_length, int q,
                     int width) const {
        const T one = real_element<T>(1);
        if (to_length == 0 || from_length == 0) return;
        if (left())
            multiply(*transa, 'N', to_length, width, from_length, alpha, a_at(to, from), lda,
                     b_at(from, q), ldb, one, b_at(to, q), ldb);
        else
            multiply('N', *transa, width, to_length, from_length, alpha, b_at(from, q), ldb,
                     a_at(from, to), lda, one, b_at(to, q), ldb);
    }
};

} // namespace vor

// The arguments of PARAMS_XTRMM(T) as a vor::Triangular<T>.
#define TRIANGULAR(T)                                                                              \
    vor::Triangular<T> {                                                                           \
        side, uplo, transa, diag, *m, *n, a, *lda, b, *ldb                                         \
    }
